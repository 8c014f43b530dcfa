#include "document/keptwork.h"

namespace ovrano {

KeptWork::KeptWork(WorkPicture& work)
    : m_work(work)
    , m_imageModified(work.ImageModified)
    , m_undoAvailable(work.UndoAvailable) {
    for (Surface* surface : {&work.picDisp, &work.picUndo, &work.picSnap, &work.picAuto, &work.picTemp,
                             &work.picRegion, &work.picMask})
        m_surfaces.emplace_back(surface, surface->contents());
}

void KeptWork::putBack() {
    for (const auto& [surface, contents] : m_surfaces)
        surface->putBack(contents);
    m_work.ImageModified = m_imageModified;
    m_work.UndoAvailable = m_undoAvailable;
}

} // namespace ovrano
