#include "wizards/settingscolumn.h"

#include <QScrollBar>

#include <algorithm>

namespace ovrano {

namespace {

constexpr int SmallestHeight = 120; // pixels

} // namespace

SettingsColumn::SettingsColumn(QWidget* controls, QWidget* parent)
    : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setWidget(controls);
}

QSize SettingsColumn::sizeHint() const {
    return widget()->sizeHint().expandedTo(minimumSizeHint());
}

QSize SettingsColumn::minimumSizeHint() const {
    const QSize smallest = widget()->minimumSizeHint();
    const int bar = m_scrolls ? verticalScrollBar()->sizeHint().width() : 0;
    return QSize(smallest.width() + bar, std::min(smallest.height(), SmallestHeight));
}

void SettingsColumn::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const bool scrolls = height() < widget()->minimumSizeHint().height();
    if (scrolls == m_scrolls)
        return;
    m_scrolls = scrolls;
    updateGeometry();
}

} // namespace ovrano
