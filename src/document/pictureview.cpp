#include "document/pictureview.h"

#include "document/edgepixelmouse.h"
#include "document/panning.h"
#include "platform/numbers.h"
#include "platform/runtimeerror.h"

#include <QWheelEvent>

#include <algorithm>

namespace ovrano {

namespace {

/// Picture pixels per notch of a mouse wheel.
constexpr int WheelNotchPixels = 48;
constexpr int WheelNotchAngle = 120; // eighths of a degree

QScrollBar* newBar(const char* name, Qt::Orientation orientation, const QString& accessibleName,
                   QWidget* parent) {
    auto* bar = new QScrollBar(orientation, parent);
    bar->setObjectName(QLatin1String(name));
    bar->setAccessibleName(accessibleName);
    bar->setFocusPolicy(Qt::TabFocus);
    bar->setRange(0, 0);
    bar->setSingleStep(1);
    bar->setPageStep(1);
    return bar;
}

QFrame* newViewport(QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(QStringLiteral("picZ"));
    frame->setAutoFillBackground(true);
    frame->setBackgroundRole(QPalette::Mid);
    return frame;
}

ScrollRange rangeOf(const QScrollBar& bar) {
    return {toInteger16(bar.maximum()), bar.singleStep(), bar.pageStep()};
}

void applyRange(QScrollBar& bar, double picture, double viewport) {
    const ScrollRange range = scrollRange(picture, viewport, rangeOf(bar));
    bar.setSingleStep(range.SmallChange);
    bar.setPageStep(range.LargeChange);
    bar.setMaximum(range.Max);
    // Where there is something to scroll, it can be done without a mouse.
    bar.setFocusPolicy(range.Max > 0 ? Qt::TabFocus : Qt::NoFocus);
}

/// The value that brings a coordinate into a viewport that starts at `value`, moving as little as possible.
int valueShowing(int coordinate, int value, int viewport) {
    return std::clamp(value, coordinate - viewport, coordinate);
}

QPoint wheelPixels(const QWheelEvent& event) {
    if (!event.pixelDelta().isNull())
        return event.pixelDelta();
    return event.angleDelta() * WheelNotchPixels / WheelNotchAngle;
}

} // namespace

ScrollRange scrollRange(double picture, double viewport, const ScrollRange& before) {
    ScrollRange range = before;
    range.Max = toInteger16(picture - viewport);
    if (range.Max < 1) {
        range.Max = 0;
        return range;
    }
    const float ratio = static_cast<float>(viewport) / static_cast<float>(range.Max);
    range.SmallChange = ratio < 1 ? 1 : toInteger16(static_cast<double>(ratio));
    range.LargeChange = range.SmallChange;
    constexpr int PagedOverflow = 40;
    if (range.Max >= PagedOverflow)
        range.LargeChange = std::max<int>(toInteger16(range.Max / 20.0), range.SmallChange);
    return range;
}

PictureView::PictureView(WorkPicture& work, QWidget* parent)
    : QObject(parent)
    , picZ(newViewport(parent))
    , picDisp(new PictureBox(work.picDisp, picZ))
    , picSnap(new PictureBox(work.picSnap, picZ))
    , HScroll1(newBar("HScroll1", Qt::Horizontal, QStringLiteral("Défilement horizontal"), parent))
    , VScroll1(newBar("VScroll1", Qt::Vertical, QStringLiteral("Défilement vertical"), parent))
    , m_work(work) {
    picDisp->setAccessibleName(QStringLiteral("Image de travail"));
    QWidget::setTabOrder(picDisp, VScroll1); // as one reads: what is beside the picture before what is below
    QWidget::setTabOrder(VScroll1, HScroll1);
    picSnap->hide();
    picZ->installEventFilter(this);
    new EdgePixelMouse(*picZ, *picDisp, this);
    new Panning(*picZ, *picDisp, *HScroll1, *VScroll1, this);
    connect(HScroll1, &QScrollBar::valueChanged, this,
            [this] { HScroll1->isSliderDown() ? HScroll1_Scroll() : HScroll1_Change(); });
    connect(VScroll1, &QScrollBar::valueChanged, this,
            [this] { VScroll1->isSliderDown() ? VScroll1_Scroll() : VScroll1_Change(); });
}

void PictureView::setScrollMax() {
    const QSize visible = viewportSize();
    // An overflow on one axis must not leave the other one without its range.
    const auto vertically = [&] { applyRange(*VScroll1, m_work.picDisp.ScaleHeight(), visible.height()); };
    try {
        applyRange(*HScroll1, m_work.picDisp.ScaleWidth(), visible.width());
    } catch (const RuntimeError&) {
        skipOnError(vertically);
        throw;
    }
    vertically();
}

void PictureView::fitToPicture() {
    m_work.readImageSize();
    setScrollMax();
    m_work.showImageSize();
}

void PictureView::scrollHome() {
    HScroll1->setValue(0);
    VScroll1->setValue(0);
}

bool PictureView::scrollTowards(QPoint point) {
    const QPoint before(HScroll1->value(), VScroll1->value());
    HScroll1->setValue(valueShowing(point.x(), before.x(), viewportSize().width()));
    VScroll1->setValue(valueShowing(point.y(), before.y(), viewportSize().height()));
    return QPoint(HScroll1->value(), VScroll1->value()) != before;
}

void PictureView::HScroll1_Change() {
    picDisp->move(-HScroll1->value(), picDisp->y());
}

void PictureView::HScroll1_Scroll() {
    HScroll1_Change();
}

void PictureView::VScroll1_Change() {
    picDisp->move(picDisp->x(), -VScroll1->value());
}

void PictureView::VScroll1_Scroll() {
    VScroll1_Change();
}

bool PictureView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != picZ || event->type() != QEvent::Wheel)
        return QObject::eventFilter(watched, event);
    const auto& wheel = *static_cast<QWheelEvent*>(event);
    QPoint by = wheelPixels(wheel);
    if (wheel.modifiers().testFlag(Qt::ShiftModifier) && by.x() == 0)
        by = by.transposed();
    HScroll1->setValue(HScroll1->value() - by.x());
    VScroll1->setValue(VScroll1->value() - by.y());
    event->accept();
    return true;
}

} // namespace ovrano
