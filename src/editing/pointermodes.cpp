#include "editing/pointermodes.h"

#include "platform/errorreporter.h"
#include "platform/numbers.h"
#include "platform/screen.h"

#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace ovrano {

namespace {

/// Columns and rows at the picture's right and bottom edge at which it can be taken hold of.
constexpr int EdgeGrip = 2;

/// The outer size of a side whose edge is dragged by `by` pixels: a picture keeps at least one pixel.
double draggedSide(int outer, int inner, double by) {
    return std::max(outer + by, outer - inner + 1.0);
}

} // namespace

PointerModes::PointerModes(WorkPicture& work, PictureView& view, LiftedBlock& block,
                           ImageButton& regionButton, ImageButton& pickerButton, QAction& regionEntry,
                           Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , imgRegion(regionButton)
    , imgColorPicker(pickerButton)
    , mnuToolsRegion(regionEntry)
    , m_work(work)
    , m_view(view)
    , m_block(block)
    , m_dialogs(dialogs) {
    mnuToolsRegion.setCheckable(true);
    // Triggering a checkable entry has turned its check mark already.
    connect(&mnuToolsRegion, &QAction::triggered, this, &PointerModes::followRegionEntry);
    connect(&imgRegion, &ImageButton::AppearanceChanged, &mnuToolsRegion,
            [this](int appearance) { mnuToolsRegion.setChecked(appearance == 1); });
    connect(view.picDisp, &PictureBox::mouseDown, this, &PointerModes::picDisp_MouseDown);
    connect(view.picDisp, &PictureBox::mouseMove, this, &PointerModes::picDisp_MouseMove);
    connect(view.picDisp, &PictureBox::mouseUp, this,
            [this](Qt::MouseButton, QPoint at) { picDisp_MouseUp(at); });
    connect(view.picSnap, &PictureBox::mouseUp, this,
            [this](Qt::MouseButton, QPoint at) { picSnap_MouseUp(at); });
}

void PointerModes::imgRegion_Click() {
    if (!m_work.ImageLoaded)
        return;
    imgRegion.setAppearance(std::abs(imgRegion.Appearance() - 1));
    if (imgRegion.isOn())
        m_block.TransparentPaste = false;
    releasePicker();
    m_block.ClearSelection();
    Q_EMIT backgroundColourLocked();
}

void PointerModes::mnuToolsRegion_Click() {
    mnuToolsRegion.toggle();
    followRegionEntry();
}

void PointerModes::followRegionEntry() {
    imgRegion.setAppearance(mnuToolsRegion.isChecked() ? 1 : 0);
}

void PointerModes::imgColorPicker_Click() {
    if (m_work.ImageLoaded)
        imgColorPicker.setAppearance(std::abs(imgColorPicker.Appearance() - 1));
}

void PointerModes::Mnu_Pipette_Click() {
    imgColorPicker_Click();
}

MousePointer PointerModes::pointerAt(QPoint at) const {
    const bool zoneMode = imgRegion.isOn();
    if (zoneMode && m_block.HasSelection)
        return m_block.encloses(at) ? MousePointer::Move : MousePointer::Cross;
    if (at.x() >= m_work.picDisp.ScaleWidth() - EdgeGrip)
        return MousePointer::SizeWE;
    if (at.y() >= m_work.picDisp.ScaleHeight() - EdgeGrip)
        return MousePointer::SizeNS;
    return zoneMode ? MousePointer::Cross : MousePointer::Default;
}

void PointerModes::UpdatePointerShape(QPoint at) {
    m_view.picDisp->setPointer(pointerAt(at));
}

void PointerModes::picDisp_MouseDown(Qt::MouseButton button, QPoint at) {
    if (button == Qt::LeftButton)
        trapErrors(m_dialogs, QStringLiteral("picDisp_MouseDown"), [&] { press(at); });
}

void PointerModes::press(QPoint at) {
    const MousePointer pointer = m_view.picDisp->pointer();
    if (pointer == MousePointer::SizeWE)
        m_block.takeRightEdge(at.x());
    else if (pointer == MousePointer::SizeNS)
        m_block.takeBottomEdge(at.y());
    else if (!imgColorPicker.isOn() && imgRegion.isOn())
        pressInZoneMode(at);
}

void PointerModes::pressInZoneMode(QPoint at) {
    m_block.MouseIsDown = true;
    if (!m_block.HasSelection)
        m_block.startBand(at);
    else if (m_block.contains(at))
        m_block.grab(at);
    else
        m_block.drop();
}

void PointerModes::picDisp_MouseMove(QPoint at) {
    trapErrors(m_dialogs, QStringLiteral("picDisp_MouseMove"), [&] { move(at); });
}

void PointerModes::move(QPoint at) {
    UpdatePointerShape(at);
    if (m_block.ResizingWidth)
        dragRightEdge(at.x());
    else if (m_block.ResizingHeight)
        dragBottomEdge(at.y());
    else if (imgRegion.isOn() && m_block.MouseIsDown)
        moveInZoneMode(at);
}

void PointerModes::dragRightEdge(int x) {
    Surface& picDisp = m_work.picDisp;
    const int before = picDisp.Width();
    picDisp.setWidth(draggedSide(before, picDisp.innerSize().width(), x - double(m_block.ResizeStartX)));
    m_block.ResizeStartX += float(picDisp.Width() - before);
    m_work.ImageWidth = toInteger32(picDisp.ScaleWidth());
    edgeDragged(u'L');
}

void PointerModes::dragBottomEdge(int y) {
    Surface& picDisp = m_work.picDisp;
    const int before = picDisp.Height();
    picDisp.setHeight(draggedSide(before, picDisp.innerSize().height(), y - double(m_block.ResizeStartY)));
    m_block.ResizeStartY += float(picDisp.Height() - before);
    m_work.ImageHeight = toInteger32(picDisp.ScaleHeight());
    edgeDragged(u'W'); // the two edges name the width differently, on purpose
}

void PointerModes::edgeDragged(QChar widthLetter) {
    m_work.ImageModified = true;
    m_work.showImageSize(widthLetter);
    m_yield();
}

void PointerModes::moveInZoneMode(QPoint at) {
    if (m_block.HasSelection) {
        m_block.dragTo(at);
        return;
    }
    m_block.stretchBand(at);
    if (m_view.scrollTowards(at))
        m_work.picDisp.Refresh();
}

void PointerModes::picDisp_MouseUp(QPoint at) {
    if (m_work.ImageLoaded)
        trapErrors(m_dialogs, QStringLiteral("picDisp_MouseUp"), [&] { release(at); });
}

void PointerModes::release(QPoint at) {
    m_block.MouseIsDown = false;
    m_work.ImageModified = true;
    if (m_block.ResizingWidth || m_block.ResizingHeight)
        endEdgeDrag();
    else if (imgColorPicker.isOn())
        pickColour(at);
    else if (imgRegion.isOn())
        m_block.endBand();
}

void PointerModes::pickColour(QPoint at) {
    Surface& picDisp = m_work.picDisp;
    releasePicker();
    picDisp.Cls();
    picDisp.commit();
    // The button may be released beside the picture, where there is no colour.
    const Colour colour = picDisp.Point(at.x(), at.y());
    if (colour != InvalidColour)
        Q_EMIT colourPicked(colour);
    m_view.picDisp->setFocus();
}

void PointerModes::endEdgeDrag() {
    Surface& picDisp = m_work.picDisp;
    Surface& picSnap = m_work.picSnap;
    picDisp.Cls(); // a frame is only drawn over the picture and must not become part of it
    m_block.ResizingWidth = m_block.ResizingHeight = false;
    releasePicker();
    for (Surface* companion : {&picSnap, &m_work.picUndo})
        emptyToSizeOf(*companion, picDisp);
    m_work.BitbltPic(picDisp, picSnap);
    picDisp.setPicture(Raster());
    m_work.BitbltPic(picSnap, picDisp);
    picSnap.setPicture(Raster());
    m_work.UndoAvailable = false; // the snapshot is gone: putting it back would blank the picture
    Q_EMIT undoLost();            // before what may fail: a picture too large to be scrolled
    m_view.setScrollMax();
}

void PointerModes::picSnap_MouseUp(QPoint) {
    if (!m_work.ImageLoaded)
        return;
    // The colour under the mouse is of no use to anybody, so it is not read.
    setScreenMousePointer(MousePointer::Hourglass);
    const auto pointerBack = qScopeGuard([] { setScreenMousePointer(MousePointer::Default); });
    trapErrors(m_dialogs, QStringLiteral("picSnap_MouseUp"), [&] { m_work.TakeUndoSnapshot(); });
}

} // namespace ovrano
