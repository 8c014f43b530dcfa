#include "editing/paste.h"

#include "document/clipboardpicture.h"
#include "document/picturereader.h"
#include "editing/mask.h"
#include "platform/clipboard.h"
#include "platform/errorreporter.h"
#include "platform/screen.h"
#include "platform/yield.h"

#include <QScopeGuard>

namespace ovrano {

Paste::Paste(WorkPicture& work, PictureView& view, LiftedBlock& block, ImageButton& imgRegion,
             Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view)
    , m_block(block)
    , m_imgRegion(imgRegion)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {}

void Paste::mnuEditPaste_Click() {
    run(&Paste::PasteFromClipboard, false, QStringLiteral("mnuEditPaste_Click"));
}

void Paste::mnuEditPasteTransparent_Click() {
    run(&Paste::PasteFromClipboard, true, QStringLiteral("mnuEditPaste_Click"));
}

void Paste::mnuEditPasteFromFile_Click() {
    run(&Paste::PasteFromFile, false, QStringLiteral("mnuEditPasteFromFile_Click"));
}

void Paste::mnuEditPasteFromFileTransparent_Click() {
    run(&Paste::PasteFromFile, true, QStringLiteral("mnuEditPasteFromFile_Click"));
}

void Paste::run(Command command, bool transparent, const QString& name) {
    const int yieldsBefore = EventYield::count();
    const bool transparentBefore = m_block.TransparentPaste;
    m_block.TransparentPaste = transparent;
    m_progress = Progress();
    trapErrors(m_dialogs, name, [&] { (this->*command)(); });
    trapErrors(m_dialogs, name, [&] { afterwards(transparentBefore); });
    if (EventYield::count() != yieldsBefore)
        discardWaitingPresses(); // one beside the block would put it down before anybody has seen it
    Q_EMIT editStateChanged();
}

void Paste::afterwards(bool transparentBefore) {
    // A block that was lifted before goes on as it was when nothing has come instead.
    if (!m_progress.lifted)
        m_block.TransparentPaste = transparentBefore;
    if (!m_progress.lifted && m_progress.before) {
        m_work.picDisp.putBack(*m_progress.before);
        if (m_block.HasSelection)
            m_block.DrawSelectionFrame();
    }
    m_progress.before.reset();
    if (m_progress.lifted && m_progress.resized)
        m_view.fitToPicture(); // last: it fails when the picture is larger than the bars can scroll
}

void Paste::PasteFromClipboard() {
    if (!ClipboardOffer::now().includesPicture())
        return reportNoPicture();
    prepare();
    if (const auto picture = clipboardPicture())
        place(*picture, PasteQuestion::aboutClipboard());
    else // what was offered cannot be read, or is gone by now
        reportNoPicture();
}

void Paste::PasteFromFile() {
    const QString path = askFile();
    if (path.isEmpty())
        return;
    prepare();
    place(LoadPicture(path), PasteQuestion::aboutFile());
}

void Paste::Mnu_ColleNouvIMG_Click() {
    trapErrors(m_dialogs, QStringLiteral("Mnu_ColleNouvIMG_Click"), [this] {
        // Read before anything is given up: the picture stays when nothing comes in its place.
        if (const auto picture = ClipboardOffer::now().includesPicture() ? clipboardPicture() : std::nullopt)
            replacePicture(*picture);
        else
            reportNoPicture();
    });
    Q_EMIT editStateChanged();
}

QString Paste::askFile() {
    CommonDialog1.DialogTitle = m_block.TransparentPaste
                                    ? QStringLiteral("Coller depuis un fichier en transparence")
                                    : QStringLiteral("Coller depuis un fichier");
    CommonDialog1.ShowOpenPicture();
    return CommonDialog1.FileName;
}

void Paste::reportNoPicture() {
    showInputError(m_dialogs, QStringLiteral("Pas d'image dans le presse papier !"));
}

void Paste::prepare() {
    m_work.picDisp.Cls();
    m_progress.before = m_work.picDisp.contents();
    m_view.scrollHome();
    m_work.TakeUndoSnapshot();
}

void Paste::load(const Raster& picture) {
    m_work.picAuto.setPicture(Raster());
    m_work.picAuto.setPicture(picture);
}

void Paste::place(const Raster& picture, const PasteQuestion& question) {
    load(picture);
    if (!makeRoom(question))
        return;
    m_block.SelX1 = m_block.SelY1 = 0;
    m_work.ImageModified = true;
    m_block.SelX2 = static_cast<float>(m_work.picAuto.ScaleWidth() - 1);
    m_block.SelY2 = static_cast<float>(m_work.picAuto.ScaleHeight() - 1);
    // Without memory there is no block at all, neither the one before nor half of this one.
    auto noBlock = qScopeGuard([this] { m_block.forget(); });
    m_progress.lifted = lift();
    if (m_progress.lifted)
        noBlock.dismiss();
}

bool Paste::makeRoom(const PasteQuestion& question) {
    const QSize work = m_work.picDisp.innerSize();
    const QSize pasted = m_work.picAuto.innerSize();
    if (pasted.width() <= work.width() && pasted.height() <= work.height())
        return true;
    const Answer answer = m_dialogs.messageBox(
        {question.text(work, pasted), QStringLiteral("Attention"), Buttons::YesNoCancel, Icon::Question});
    if (answer == Answer::Yes)
        takeSizeOfPasted();
    return answer == Answer::Yes || answer == Answer::No;
}

void Paste::takeSizeOfPasted() {
    // In both directions, on purpose: one in which the pasted picture is smaller shrinks.
    const QSize pasted = m_work.picAuto.innerSize();
    setClientSize(m_work.picDisp, pasted.width(), pasted.height());
    m_progress.resized = true;
}

/// False when a copy failed, which has been reported.
bool Paste::lift() {
    {
        setScreenMousePointer(MousePointer::Hourglass);
        const auto pointerBack = qScopeGuard([] { setScreenMousePointer(MousePointer::Default); });
        if (!cutBlock() || (m_block.TransparentPaste && !cutMask()) || !m_block.keepBackground())
            return false;
    }
    m_block.BlockFromPaste = true;
    offerForDragging();
    m_block.SetPrevAndCurrValues(m_block.SelX1, m_block.SelY1);
    m_block.SetLeeWay(m_work.picRegion, m_work.picDisp, LiftedBlock::LeeWayPercent);
    m_block.ComposeRegion();
    m_view.picDisp->setFocus(); // the arrow keys move the block
    return true;
}

bool Paste::cutBlock() {
    const QSize size = m_work.picAuto.innerSize();
    m_work.picRegion.setPicture(Raster());
    setClientSize(m_work.picRegion, size.width(), size.height());
    return m_work.BitbltPic(m_work.picAuto, m_work.picRegion);
}

bool Paste::cutMask() {
    Surface& picRegion = m_work.picRegion;
    const Colour seeThrough = picRegion.Point(0, 0);
    if (seeThrough != White)
        WhiteNonPaintArea(picRegion, seeThrough);
    return m_block.cutMask();
}

void Paste::offerForDragging() {
    const QSize block = m_work.picRegion.innerSize();
    const QSize work = m_work.picDisp.innerSize();
    const bool movable = block.width() < work.width() && block.height() < work.height();
    if (movable)
        m_block.HasSelection = true;
    m_imgRegion.setAppearance(movable ? 1 : 0);
}

void Paste::replacePicture(const Raster& picture) {
    m_work.picDisp.Cls();
    for (Surface* surface : {&m_work.picSnap, &m_work.picUndo, &m_work.picRegion, &m_work.picMask})
        surface->setPicture(Raster());
    m_work.showFileName(QString());
    m_block.forget();
    m_view.scrollHome();
    m_work.TakeUndoSnapshot();
    load(picture);
    m_work.picDisp.setInnerSize(picture.size());
    m_work.picDisp.setPicture(picture);
    m_work.ImageLoaded = true;
    m_work.ImageModified = false;
    Q_EMIT pickerReleased();
    m_view.picDisp->setFocus();
    m_view.fitToPicture();
}

} // namespace ovrano
