#include "text/onecolourpanel.h"

#include "document/keptwork.h"
#include "platform/controls.h"
#include "platform/errorreporter.h"
#include "platform/memoryerror.h"
#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "platform/screen.h"
#include "platform/yield.h"
#include "text/colourcaption.h"
#include "text/directionicon.h"
#include "text/rotation.h"

#include <QGridLayout>
#include <QScopeGuard>

#include <algorithm>
#include <iterator>

namespace ovrano {

namespace {

constexpr int StampMargin = 10; // pixels beyond the text's cell, whatever the depth
constexpr int DeepestShade = 9;
constexpr int Spacing = 4; // pixels

struct DirectionItem {
    const char* key;
    QString shown;
};

/// In the order of Direction.
QList<DirectionItem> directionItems() {
    return {{"UpperLeft", QStringLiteral("Haut Gauche")},
            {"UpperRight", QStringLiteral("Haut Droit")},
            {"LowerLeft", QStringLiteral("Bas Gauche")},
            {"LowerRight", QStringLiteral("Bas Droit")}};
}

Direction directionAt(int row) {
    return static_cast<Direction>(row + 1);
}

} // namespace

OneColourPanel::OneColourPanel(WorkPicture& work, PictureView& view, LiftedBlock& block, PointerModes& modes,
                               StylePanel& style, AnglePanel& angle, Dialogs& dialogs, QWidget* parent)
    : QGroupBox(QStringLiteral("Texte 3D"), parent)
    , lblShadeThickness(named(new QLabel(QStringLiteral("Profondeur"), this), "lblShadeThickness"))
    , cboShadeThickness(named(new QComboBox(this), "cboShadeThickness", lblShadeThickness->text()))
    , Label1(named(new QLabel(QStringLiteral("Position 3D"), this), "Label1"))
    , icb1Color3D(named(new QComboBox(this), "icb1Color3D", Label1->text()))
    , cmd1Color3DProceed(
          named(new QPushButton(QStringLiteral("Créer le texte 3D"), this), "cmd1Color3DProceed"))
    , m_work(work)
    , m_view(view)
    , m_block(block)
    , m_modes(modes)
    , m_style(style)
    , m_angle(angle)
    , m_dialogs(dialogs) {
    setObjectName(QStringLiteral("fra1Color3D"));
    fillLists();
    drawIcons();
    arrange();
    connect(cmd1Color3DProceed, &QPushButton::clicked, this,
            unlessUnderWay([this] { cmd1Color3DProceed_Click(); }));
    connect(cboShadeThickness, &QComboBox::currentTextChanged, this, &OneColourPanel::drawIcons);
    connect(style.picTextColor, &ColourBox::BackColorChanged, this, &OneColourPanel::drawIcons);
}

void OneColourPanel::fillLists() {
    addNumbers(*cboShadeThickness, 1, DeepestShade);
    cboShadeThickness->setCurrentText(QStringLiteral("4"));
    for (const DirectionItem& item : directionItems())
        icb1Color3D->addItem(item.shown, QLatin1String(item.key));
    icb1Color3D->setIconSize(QSize(DirectionIconSide, DirectionIconSide));
}

void OneColourPanel::drawIcons() {
    skipOnError([this] { // a depth that cannot be read leaves the icons as they were
        const Colour colour = m_style.picTextColor->BackColor();
        for (int row = 0; row < icb1Color3D->count(); ++row)
            icb1Color3D->setItemIcon(row, directionIcon(directionAt(row), depth(), colour));
    });
}

void OneColourPanel::arrange() {
    lblShadeThickness->setBuddy(cboShadeThickness);
    Label1->setBuddy(icb1Color3D);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    grid->setSpacing(Spacing);
    grid->addWidget(lblShadeThickness, 0, 0);
    grid->addWidget(cboShadeThickness, 0, 1);
    grid->addWidget(Label1, 1, 0);
    grid->addWidget(icb1Color3D, 1, 1);
    grid->addWidget(cmd1Color3DProceed, 2, 0, 1, 2);
    grid->setColumnStretch(1, 1);
}

void OneColourPanel::cmd1Color3DProceed_Click() {
    if (!m_style.CheckTextInputs())
        return;
    KeptWork workBefore(m_work);
    const BlockState blockBefore = m_block.state();
    if (stamp())
        return;
    workBefore.putBack();
    m_block.setState(blockBefore);
    ErrMsgProc(m_dialogs, QStringLiteral("cmd1Color3DProceed_Click"), RuntimeError(error::OutOfMemory));
}

/// False when a step lacked memory; the steps after it are then left out.
bool OneColourPanel::stamp() {
    using Step = void (OneColourPanel::*)();
    using Panel = OneColourPanel;
    constexpr Step Steps[] = {
        &Panel::releasePicker,   &Panel::scrollHome,       &Panel::emptySurfaces,
        &Panel::takeSnapshot,    &Panel::keepBackground,   &Panel::applyFont,
        &Panel::widenStamp,      &Panel::heightenStamp,    &Panel::measureInTwips,
        &Panel::readColour,      &Panel::readDepth,        &Panel::printStamp,
        &Panel::measureInPixels, &Panel::sizeRegion,       &Panel::turnStamp,
        &Panel::cutMask,         &Panel::placeBlock,       &Panel::liftBlock,
        &Panel::composeBlock,    &Panel::takeUpTool,       &Panel::pictureFocusRequested,
        &Panel::resetPointer,    &Panel::editStateChanged, &Panel::backgroundColourLocked,
        &Panel::rememberText};

    setScreenMousePointer(MousePointer::Hourglass);
    const auto pointerBack = qScopeGuard([] { setScreenMousePointer(MousePointer::Default); });
    return std::none_of(std::begin(Steps), std::end(Steps),
                        [this](Step step) { return lacksMemory([&] { (this->*step)(); }); });
}

void OneColourPanel::releasePicker() {
    m_modes.releasePicker();
}

void OneColourPanel::scrollHome() {
    m_view.scrollHome();
}

void OneColourPanel::emptySurfaces() {
    for (Surface* surface : {&m_work.picTemp, &m_work.picRegion, &m_work.picMask})
        surface->setPicture(Raster());
}

void OneColourPanel::takeSnapshot() {
    // The frame around an earlier block is only drawn over the picture and must not become part of it.
    m_work.picDisp.Cls();
    m_work.TakeUndoSnapshot();
}

void OneColourPanel::keepBackground() {
    m_block.keepBackground();
}

void OneColourPanel::applyFont() {
    m_style.ApplyTextFont(m_work.picTemp);
}

void OneColourPanel::widenStamp() {
    const double wanted = m_work.picTemp.TextWidth(text()) + StampMargin;
    m_work.picTemp.setWidth(std::min<double>(wanted, m_work.picDisp.Width()));
}

void OneColourPanel::heightenStamp() {
    const double wanted = m_work.picTemp.TextHeight(text()) + StampMargin;
    m_work.picTemp.setHeight(std::min<double>(wanted, m_work.picDisp.Height()));
}

void OneColourPanel::measureInTwips() {
    m_work.picSnap.setScaleMode(ScaleMode::Twips);
    m_work.picTemp.setScaleMode(ScaleMode::Twips);
}

void OneColourPanel::readColour() {
    m_colour = Black;
    m_colour = colourFromCaption(m_style.lblTextColor->text());
}

void OneColourPanel::readDepth() {
    m_depth = 0; // what is left when the depth cannot be read
    m_depth = extrusionDepth(depth());
}

void OneColourPanel::printStamp() {
    printExtrusion(m_work.picTemp, extrusionLayers(m_colour, m_depth, direction()), text());
}

void OneColourPanel::measureInPixels() {
    m_work.picSnap.setScaleMode(ScaleMode::Pixels);
    m_work.picTemp.setScaleMode(ScaleMode::Pixels);
}

void OneColourPanel::sizeRegion() {
    const std::int32_t side = SizeToRotateRegion(m_work.picTemp);
    setClientSize(m_work.picRegion, side, side);
}

void OneColourPanel::turnStamp() {
    Surface& region = m_work.picRegion;
    const Colour background = region.Point(0, 0);
    const std::int32_t centreX = toInteger32(region.ScaleWidth() / 2);
    const std::int32_t centreY = toInteger32(region.ScaleHeight() / 2);
    region.Cls();
    RotatePicture(m_work.picTemp, region, m_angle.angle(), true, background, false, centreX, centreY);
    region.Refresh();
}

void OneColourPanel::cutMask() {
    m_block.cutMask();
}

void OneColourPanel::placeBlock() {
    m_block.SetPrevAndCurrValues(0, 0);
    m_block.SetLeeWay(m_work.picRegion, m_work.picDisp, LiftedBlock::LeeWayPercent);
}

void OneColourPanel::liftBlock() {
    m_block.HasSelection = true;
    m_block.TransparentPaste = true;
    m_block.SelX1 = 0;
    m_block.SelY1 = 0;
    m_block.SelX2 = static_cast<float>(m_work.picRegion.ScaleWidth() - 1);
    m_block.SelY2 = static_cast<float>(m_work.picRegion.ScaleHeight() - 1);
}

void OneColourPanel::takeUpTool() {
    m_modes.imgRegion.setAppearance(1);
}

void OneColourPanel::composeBlock() {
    m_block.ComposeRegion();
    m_work.ImageModified = true;
    m_work.picDisp.Refresh();
}

void OneColourPanel::resetPointer() {
    setScreenMousePointer(MousePointer::Default);
}

void OneColourPanel::rememberText() {
    lastWrittenText = text();
}

std::int16_t OneColourPanel::depth() const {
    return integerValue(cboShadeThickness->currentText());
}

Direction OneColourPanel::direction() const {
    return directionAt(icb1Color3D->currentIndex());
}

} // namespace ovrano
