#include "document/undo.h"

#include "platform/errorreporter.h"

namespace ovrano {

Undo::Undo(WorkPicture& work, PictureView& view, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view)
    , m_dialogs(dialogs) {}

void Undo::mnuEditUndo_Click() {
    trapErrors(m_dialogs, QStringLiteral("mnuEditUndo_Click"), [this] { putBack(); });
}

void Undo::putBack() {
    if (m_work.picDisp.innerSize() != m_work.picUndo.innerSize())
        emptyToSizeOf(m_work.picDisp, m_work.picUndo);
    m_work.BitbltPic(m_work.picUndo, m_work.picDisp);
    Q_EMIT pickerReleased();
    m_view.scrollHome();
    m_work.UndoAvailable = false;
}

} // namespace ovrano
