#include "editing/copycut.h"

#include "platform/clipboard.h"
#include "platform/errorreporter.h"
#include "platform/memoryerror.h"

namespace ovrano {

CopyCut::CopyCut(WorkPicture& work, LiftedBlock& block, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_block(block)
    , m_dialogs(dialogs) {}

bool CopyCut::requirePicture() {
    if (!m_work.ImageLoaded)
        showInputError(m_dialogs, QStringLiteral("Pas d'image chargée !"));
    return m_work.ImageLoaded;
}

void CopyCut::mnuEditCopy_Click() {
    if (requirePicture())
        trapErrors(m_dialogs, QStringLiteral("mnuEditCopy_Click"), [this] { copy(); });
}

void CopyCut::copy() {
    m_work.picDisp.Cls(); // a frame is only drawn over the picture and is not copied
    if (m_block.HasSelection)
        copyZone();
    else // what is shown, which is there for a blank picture, too
        skipOnError([this] { putOnClipboard(m_work.picDisp.Image()); });
}

void CopyCut::copyZone() {
    Surface& picAuto = m_work.picAuto;
    picAuto.setAutoSize(false);
    const bool lacked = lacksMemory([&] {
        const QRect zone = m_block.zone();
        picAuto.setPicture(Raster());
        setClientSize(picAuto, zone.width(), zone.height());
        picAuto.copyFrom(m_work.picDisp, zone, QPoint(0, 0));
        putOnClipboard(picAuto.Image());
    });
    picAuto.setAutoSize(true);
    m_block.DrawSelectionFrame();
    if (lacked) // a cut that went on would lose what it cuts
        throw RuntimeError(error::OutOfMemory);
}

void CopyCut::mnuEditCut_Click() {
    if (!requirePicture())
        return;
    if (m_block.SelX2 == 0 || m_block.SelY2 == 0) {
        showInputError(m_dialogs, QStringLiteral("Pas de zone de sélection en cours !"));
        return;
    }
    trapErrors(m_dialogs, QStringLiteral("mnuEditCut_Click"), [this] {
        m_work.picDisp.Cls(); // neither a block's frame nor a band is part of what was there before
        m_work.TakeUndoSnapshot();
        copy();
        m_block.fillPlace();
        m_block.ClearSelection();
        m_work.ImageModified = true;
    });
    Q_EMIT editStateChanged();
}

void CopyCut::mnuEditClearClipboard_Click() {
    clearClipboard();
    Q_EMIT editStateChanged();
}

} // namespace ovrano
