#include "wizards/picturedialog.h"

#include "platform/controls.h"
#include "platform/errorreporter.h"
#include "platform/numbers.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QShowEvent>
#include <QWindow>

#include <algorithm>

namespace ovrano {

namespace {

constexpr double LargestTypedSize = 999; // points

/// What the window manager puts around a window that is shown; nothing for none. The widget itself would keep
/// what it is told first, and that may be the size of a frame that is still being made: smaller than the
/// window.
QMargins windowFrame(const QWidget* shown) {
    const QWindow* window = shown ? shown->window()->windowHandle() : nullptr;
    const QMargins frame = window ? window->frameMargins() : QMargins();
    return {std::max(frame.left(), 0), std::max(frame.top(), 0), std::max(frame.right(), 0),
            std::max(frame.bottom(), 0)};
}

} // namespace

PictureDialog::PictureDialog(const QString& pictureName, QSize size, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent)
    , m_picture(pictureName, size)
    , Frame6(new ExampleFrame(QStringLiteral("Frame6"), m_picture, this))
    , lblPictureSize(named(new QLabel(this), "lblPictureSize"))
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setSizeGripEnabled(true);
    showPictureSize();
    connect(Frame6, &ExampleFrame::pictureResized, this, &PictureDialog::showPictureSize);
}

PictureDialog::~PictureDialog() {
    putAway();
    delete Frame6; // before the surface that it shows
}

void PictureDialog::putAway() {
    m_leaving = true;
    hide();
}

void PictureDialog::done(int result) {
    m_leaving = true;
    QDialog::done(result);
}

void PictureDialog::showEvent(QShowEvent* event) {
    if (!event->spontaneous())
        m_leaving = false;
    QDialog::showEvent(event);
}

bool PictureDialog::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !m_settled) {
        m_settled = true;
        placeOnScreen();
        layout()->activate(); // what the controls have asked for meanwhile
        Frame6->settle();
        firstShown();
    }
    return QDialog::event(event);
}

QRect PictureDialog::roomOnScreen() const {
    const QMargins own = isVisible() ? windowFrame(this) : QMargins();
    const QMargins frame = own.isNull() ? windowFrame(parentWidget()) : own;
    return screen()->availableGeometry().marginsRemoved(frame);
}

void PictureDialog::placeOnScreen() {
    resize((isVisible() ? size() : sizeHint()).boundedTo(roomOnScreen().size()));
}

void PictureDialog::showPictureSize() {
    const QSize size = m_picture.innerSize();
    lblPictureSize->setText(
        QStringLiteral("Nouvelle image : %1 × %2 pixels").arg(size.width()).arg(size.height()));
}

bool PictureDialog::chooseColour(ColourBox& box, const QString& handler, int flags) {
    bool chosen = false;
    trapErrors(m_dialogs, handler, [&] {
        box.setBackColor(CommonDialog1.AskColour(box.BackColor(), flags));
        chosen = true;
    });
    return chosen;
}

double typedPoints(const QString& text) {
    return std::min(numericValue(text), LargestTypedSize);
}

} // namespace ovrano
