#include "editing/blockkeys.h"

#include "platform/arrowkeys.h"
#include "platform/errorreporter.h"
#include "platform/yield.h"

#include <QGuiApplication>

namespace ovrano {

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
    const QPoint by = arrowStep(press);
    const bool drops = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
    trapErrors(m_dialogs, QStringLiteral("picDisp_KeyDown"), [&] {
        if (!by.isNull())
            move(by);
        else if (drops)
            drop();
    });
    return drops || !by.isNull();
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
