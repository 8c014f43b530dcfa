#include "editing/liftedblock.h"

#include "editing/mask.h"
#include "platform/numbers.h"
#include "platform/runtimeerror.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

/// Pixels of a block that are composed without a repainting in between: a few milliseconds' work.
constexpr qint64 MostPixelsAtOnce = 4'000'000;

qint64 pixelsOf(QSize size) {
    return qint64{size.width()} * size.height();
}

QPoint pixelAt(float x, float y) {
    return QPoint(toInteger32(double(x)), toInteger32(double(y)));
}

} // namespace

LiftedBlock::LiftedBlock(WorkPicture& work, QObject* parent)
    : QObject(parent)
    , m_work(work) {}

void LiftedBlock::SetLeeWay(const Surface& moved, const Surface& container, double percent) {
    const double left = -(moved.ScaleWidth() / 100 * percent);
    const double top = -(moved.ScaleHeight() / 100 * percent);
    MinLeft = float(left);
    MinTop = float(top);
    MaxLeft = float(container.ScaleWidth() - moved.ScaleWidth() - left);
    MaxTop = float(container.ScaleHeight() - moved.ScaleHeight() - top);
}

void LiftedBlock::SetPrevAndCurrValues(float x, float y) {
    CurrX = PrevX = x;
    CurrY = PrevY = y;
    GrabDX = GrabDY = 0;
}

void LiftedBlock::ClearSelection() {
    m_work.UndoAvailable = false;
    forget();
    m_work.picDisp.Cls();
}

void LiftedBlock::forget() {
    MouseIsDown = HasSelection = BlockFromPaste = false;
    ResizingWidth = ResizingHeight = false;
    SelX1 = SelX2 = SelY1 = SelY2 = 0;
}

bool LiftedBlock::keepBackground() {
    takeSize(m_work.picSnap, m_work.picDisp); // an Undo may have changed the picture's size alone
    return m_work.BitbltPic(m_work.picDisp, m_work.picSnap);
}

bool LiftedBlock::cutMask() {
    takeSize(m_work.picMask, m_work.picRegion);
    if (!m_work.BitbltPic(m_work.picRegion, m_work.picMask))
        return false;
    CreateMask(m_work.picMask, Black);
    return true;
}

void LiftedBlock::NormaliseSelection() {
    if (SelX1 > SelX2)
        std::swap(SelX1, SelX2);
    if (SelY1 > SelY2)
        std::swap(SelY1, SelY2);
}

void LiftedBlock::drawBox(Surface& surface, Colour colour, BoxStyle style) const {
    surface.Line(QPointF(double(SelX1), double(SelY1)), QPointF(double(SelX2), double(SelY2)), colour, style);
}

void LiftedBlock::DrawSelectionFrame() {
    Surface& picDisp = m_work.picDisp;
    picDisp.setDrawMode(DrawMode::Invert);
    picDisp.setDrawStyle(DrawStyle::Dotted);
    drawBox(picDisp, Black, BoxStyle::Outline);
    picDisp.setDrawMode(DrawMode::CopyPen);
    picDisp.setDrawStyle(DrawStyle::Solid);
}

QSize LiftedBlock::selectionSize() const {
    return QSize(toInteger32(double(SelX2) - double(SelX1) + 1),
                 toInteger32(double(SelY2) - double(SelY1) + 1));
}

QRect LiftedBlock::zone() const {
    return QRect(pixelAt(SelX1, SelY1), selectionSize());
}

void LiftedBlock::fillPlace() {
    Surface& picDisp = m_work.picDisp;
    picDisp.Cls(); // a frame must not become part of the picture
    picDisp.Line(QPointF(double(SelX1), double(SelY1)), QPointF(double(SelX2) - 1, double(SelY2) - 1),
                 picDisp.BackColor(), BoxStyle::Filled);
    picDisp.commit();
}

void LiftedBlock::CaptureSelection() {
    const QRect zone = this->zone();
    Surface& picDisp = m_work.picDisp;
    Surface& picSnap = m_work.picSnap;
    Surface& picRegion = m_work.picRegion;
    setClientSize(picRegion, zone.width(), zone.height());
    picDisp.Cls();
    keepBackground();
    DrawSelectionFrame();
    // What a zone holds beside the picture is background, not the rest of an earlier block.
    picRegion.setPicture(Raster(picRegion.innerSize(), picDisp.BackColor()));
    picRegion.copyFrom(picSnap, zone, QPoint(0, 0));
    picRegion.commit();
    drawBox(picSnap, picDisp.BackColor(), BoxStyle::Filled);
    picSnap.commit();
    SetLeeWay(picRegion, picDisp, LeeWayPercent);
    SetPrevAndCurrValues(SelX1, SelY1);
}

void LiftedBlock::ComposeRegion() {
    composeRegion(Memory::AsNeeded);
}

void LiftedBlock::composeRegion(Memory memory) {
    const Places places{QRect(pixelAt(PrevX, PrevY), selectionSize()),
                        QRect(pixelAt(CurrX, CurrY), selectionSize())};
    m_work.picDisp.Cls();
    if (pixelsOf(places.now.size()) <= MostPixelsAtOnce)
        m_work.picDisp.editCommitted(places.touched(), [&](Raster& image) {
            if (memory == Memory::Beforehand)
                image.makeOwn(places.touched());
            compose(image, places);
        });
    else
        composeBeside(places);
    if (HasSelection)
        DrawSelectionFrame();
    PrevX = CurrX;
    PrevY = CurrY;
}

void LiftedBlock::compose(Raster& image, const Places& places, EventYield* yield) const {
    const Raster& background = m_work.picSnap.Image();
    const Raster& block = m_work.picRegion.Image();
    // Tiles that the block meets stay the image's own: shared with the background first, they would take
    // memory again when the block is drawn.
    const QRect met = Raster::wholeTiles(places.now);
    for (const QRect& left : QRegion(places.before) - met)
        image.copyFrom(background, left);
    if (TransparentPaste) {
        image.copyPixels(background, places.before & met);
        composeMasked(image, block, m_work.picMask.Image(), places.now.topLeft(), places.now.size(), yield);
    } else {
        const QRect drawn = block.rect() & QRect(QPoint(0, 0), places.now.size());
        for (const QRect& left : QRegion(places.before & met) - drawn.translated(places.now.topLeft()))
            image.copyPixels(background, left);
        image.copyFrom(block, drawn, places.now.topLeft());
    }
    // What the block has left need not be kept twice.
    for (const QRect& left : QRegion(Raster::wholeTiles(places.before)) - Raster::wholeTiles(places.now))
        image.shareEqualTiles(background, left);
}

void LiftedBlock::composeBeside(const Places& places) {
    // Beside what is shown, so that a repainting in between never shows half a block.
    Raster composed = m_work.picDisp.Image();
    EventYield yield;
    compose(composed, places, &yield);
    m_work.picDisp.editCommitted(places.touched(), [&](Raster& image) {
        if (image.size() == composed.size()) // nothing has come in between
            image = composed;
    });
}

bool LiftedBlock::contains(QPoint point) const {
    const auto x = float(point.x()), y = float(point.y());
    return x >= SelX1 && x <= SelX2 && y >= SelY1 && y <= SelY2;
}

bool LiftedBlock::encloses(QPoint point) const {
    const auto x = float(point.x()), y = float(point.y());
    return x > SelX1 && x < SelX2 && y > SelY1 && y < SelY2;
}

void LiftedBlock::takeRightEdge(int x) {
    ResizingWidth = true;
    ResizingHeight = false;
    ResizeStartX = float(x);
}

void LiftedBlock::takeBottomEdge(int y) {
    ResizingHeight = true;
    ResizingWidth = false;
    ResizeStartY = float(y);
}

void LiftedBlock::grab(QPoint mouse) {
    GrabDX = CurrX - float(mouse.x());
    GrabDY = CurrY - float(mouse.y());
}

void LiftedBlock::dragTo(QPoint mouse) {
    moveTo(GrabDX + float(mouse.x()), GrabDY + float(mouse.y()));
}

void LiftedBlock::moveBy(QPoint pixels) {
    // Without touching the grab: a mouse that holds the block goes on from where it holds it.
    moveTo(CurrX + float(pixels.x()), CurrY + float(pixels.y()));
}

void LiftedBlock::moveTo(float x, float y) {
    const auto clamp = [](float value, float least, float most) {
        return std::min(std::max(value, least), most); // the upper bound wins where they cross
    };
    auto stays = qScopeGuard([this, before = state()] {
        setState(before);
        m_work.picDisp.Cls(); // a second frame would erase one that is still there
        skipOnError([this] { DrawSelectionFrame(); });
    });
    CurrX = clamp(x, MinLeft, MaxLeft);
    // The top is bounded by the horizontal leeway on purpose: a wide block may be pushed out further than its
    // own leeway says, a tall one less far.
    CurrY = clamp(y, MinLeft, MaxTop);
    SelX1 = CurrX;
    SelY1 = CurrY;
    // From here on the frame stands one pixel outside the block at the right and below, on purpose.
    SelX2 = float(m_work.picRegion.ScaleWidth()) + SelX1;
    SelY2 = float(m_work.picRegion.ScaleHeight()) + SelY1;
    composeRegion(Memory::Beforehand);
    stays.dismiss();
}

void LiftedBlock::drop() {
    m_work.picDisp.Cls();
    auto stays = qScopeGuard([this] { skipOnError([this] { DrawSelectionFrame(); }); });
    m_work.TakeUndoSnapshot();
    stays.dismiss();
    ClearSelection();
}

void LiftedBlock::startBand(QPoint mouse) {
    m_work.picDisp.Cls();
    SelX1 = SelX2 = float(mouse.x());
    SelY1 = SelY2 = float(mouse.y());
    DrawSelectionFrame();
}

void LiftedBlock::stretchBand(QPoint mouse) {
    DrawSelectionFrame();
    SelX2 = float(mouse.x());
    SelY2 = float(mouse.y());
    DrawSelectionFrame();
}

void LiftedBlock::endBand() {
    // Measured before the edges are put in order: a band drawn to the left or upwards lifts nothing.
    const bool largeEnough = SelX2 - SelX1 > 1 && SelY2 - SelY1 > 1;
    if (HasSelection || !largeEnough)
        return;
    HasSelection = true;
    NormaliseSelection();
    TransparentPaste = false;
    CaptureSelection();
}

} // namespace ovrano
