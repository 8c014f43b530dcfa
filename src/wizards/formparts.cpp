#include "wizards/formparts.h"

#include "platform/controls.h"

#include <algorithm>

namespace ovrano {

namespace {

// Pixels.
constexpr int Spacing = 6;
constexpr int CaptionMargin = 3;
constexpr int MoreButtonWidth = 30;

} // namespace

QGroupBox* groupFrame(const char* name, const QString& title, QWidget* parent) {
    // Without a name of its own, a frame in another one would be read aloud by the outer one's title.
    QString spoken = title;
    spoken.replace(QStringLiteral("&&"), QStringLiteral("&"));
    return named(new QGroupBox(title, parent), name, spoken.simplified());
}

QPushButton* moreButton(const char* name, const QString& toolTip, QWidget* parent) {
    auto* button = named(new QPushButton(QStringLiteral("..."), parent), name, toolTip);
    button->setToolTip(toolTip);
    button->setFixedWidth(std::max(MoreButtonWidth, button->sizeHint().height())); // large desktop fonts
    return button;
}

ColourBox* captionedColour(const char* name, const QString& caption, Colour colour, QWidget* parent) {
    auto* box = new ColourBox(QLatin1String(name), colour, parent);
    box->setText(caption);
    box->setAlignment(Qt::AlignCenter);
    box->setMargin(CaptionMargin);
    box->keepCaptionReadable();
    return box;
}

void inset(QLayout& layout) {
    layout.setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    layout.setSpacing(Spacing);
}

} // namespace ovrano
