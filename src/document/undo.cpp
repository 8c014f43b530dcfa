#include "document/undo.h"

namespace ovrano {

Undo::Undo(WorkPicture& work, PictureView& view, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view) {}

void Undo::mnuEditUndo_Click() {
    if (m_work.picDisp.innerSize() != m_work.picUndo.innerSize()) {
        m_work.picDisp.setPicture(Raster());
        takeSize(m_work.picDisp, m_work.picUndo);
    }
    m_work.BitbltPic(m_work.picUndo, m_work.picDisp);
    Q_EMIT pickerReleased();
    m_view.scrollHome();
    m_work.UndoAvailable = false;
}

} // namespace ovrano
