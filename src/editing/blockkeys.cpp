#include "editing/blockkeys.h"

#include "platform/errorreporter.h"
#include "platform/yield.h"

#include <QGuiApplication>

namespace ovrano {

namespace {

constexpr int Step = 1; // pixels
constexpr int LongStep = 10;

/// The direction of an arrow key; null for every other key.
QPoint directionOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return QPoint(-1, 0);
    case Qt::Key_Right:
        return QPoint(1, 0);
    case Qt::Key_Up:
        return QPoint(0, -1);
    case Qt::Key_Down:
        return QPoint(0, 1);
    default:
        return QPoint();
    }
}

} // namespace

BlockKeys::BlockKeys(WorkPicture& work, PictureView& view, LiftedBlock& block,
                     const ImageButton& regionButton, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view)
    , m_block(block)
    , m_imgRegion(regionButton)
    , m_dialogs(dialogs) {
    view.picDisp->installEventFilter(this);
}

bool BlockKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !obey(*static_cast<QKeyEvent*>(event)))
        return QObject::eventFilter(watched, event);
    return true;
}

bool BlockKeys::obey(const QKeyEvent& press) {
    const bool gesture = QGuiApplication::mouseButtons() != Qt::NoButton || EventYield::isUnderWay();
    if (gesture || !m_block.HasSelection || !m_imgRegion.isOn())
        return false;
    const QPoint direction = directionOf(press.key());
    const bool drops = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
    const int step = press.modifiers().testFlag(Qt::ShiftModifier) ? LongStep : Step;
    trapErrors(m_dialogs, QStringLiteral("picDisp_KeyDown"), [&] {
        if (!direction.isNull())
            move(direction * step);
        else if (drops)
            drop();
    });
    return drops || !direction.isNull();
}

void BlockKeys::move(QPoint by) {
    m_block.moveBy(by);
    m_work.ImageModified = true;
    m_view.scrollTowards(m_block.zone().center());
}

void BlockKeys::drop() {
    m_block.drop();
    m_work.ImageModified = true;
    Q_EMIT editStateChanged();
}

} // namespace ovrano
