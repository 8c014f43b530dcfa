#include "text/anglepanel.h"

#include "platform/controls.h"
#include "platform/numbers.h"
#include "platform/textmask.h"
#include "text/extrusion.h"
#include "text/rotation.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace ovrano {

namespace {

// Pixels.
constexpr int SampleSide = 84;
constexpr int SampleDepth = 3;
constexpr int Spacing = 4;

constexpr double SamplePoints = 20;
constexpr Colour SampleColour = rgb(0, 40, 120);

constexpr int PageStep = 10; // degrees
constexpr int VisibleAngles = 16;

} // namespace

AnglePanel::AnglePanel(QWidget* parent)
    : QGroupBox(QStringLiteral("Angle"), parent)
    , lblAnglePreset(named(new QLabel(QStringLiteral("Angle en degré"), this), "lblAnglePreset"))
    , cboRotateAngle(named(new QComboBox(this), "cboRotateAngle", lblAnglePreset->text()))
    , HsbRotateAngle(named(new QScrollBar(Qt::Horizontal, this), "HsbRotateAngle", lblAnglePreset->text()))
    , picRotateAngleSample(new Surface(QStringLiteral("picRotateAngleSample"), QSize(), this))
    , picRotateAngleSampleBgd(new PictureBox(
          *new Surface(QStringLiteral("picRotateAngleSampleBgd"), QSize(SampleSide, SampleSide), this),
          this)) {
    setObjectName(QStringLiteral("fraRotateAngle"));
    fillList();
    setUpScrollBar();
    drawSample();
    arrange();
    connect(cboRotateAngle, &QComboBox::currentIndexChanged, this, &AnglePanel::cboRotateAngle_Click);
    connect(HsbRotateAngle, &QScrollBar::valueChanged, this, [this] {
        if (HsbRotateAngle->isSliderDown())
            HsbRotateAngle_Scroll();
        else
            HsbRotateAngle_Change();
    });
    cboRotateAngle->setCurrentIndex(LargestAngle);
    HsbRotateAngle_Change();
}

void AnglePanel::fillList() {
    addNumbers(*cboRotateAngle, -LargestAngle, LargestAngle);
    cboRotateAngle->setMaxVisibleItems(VisibleAngles);
    cboRotateAngle->setMinimumContentsLength(4);
    // Measuring all 721 entries at every change of the layout would be slow.
    cboRotateAngle->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lblAnglePreset->setBuddy(cboRotateAngle);
}

void AnglePanel::setUpScrollBar() {
    HsbRotateAngle->setRange(-LargestAngle, LargestAngle);
    HsbRotateAngle->setPageStep(PageStep);
    HsbRotateAngle->setFocusPolicy(Qt::StrongFocus);
    // A scroll bar takes Right and Page Up for less, which suits a long page but not a value.
    HsbRotateAngle->setInvertedControls(false);
}

/// Prints the sample as texts are printed, small enough to be turned in its square.
void AnglePanel::drawSample() {
    const QString text = QStringLiteral("Texte");
    Surface& sample = *picRotateAngleSample;
    sample.setFont(textFont(QStringLiteral("Arial"), SamplePoints, true, false));
    sample.setInnerSize(QSize(toInteger32(sample.TextWidth(text)) + SampleDepth + 1,
                              toInteger32(sample.TextHeight(text)) + SampleDepth + 1));
    sample.setScaleMode(ScaleMode::Twips);
    printExtrusion(sample, extrusionLayers(SampleColour, extrusionDepth(SampleDepth), Direction::UpperLeft),
                   text);
    sample.setScaleMode(ScaleMode::Pixels);
    sample.commit();
}

void AnglePanel::arrange() {
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* inside = new QHBoxLayout(frame);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(picRotateAngleSampleBgd);
    picRotateAngleSampleBgd->setFocusPolicy(Qt::NoFocus);
    picRotateAngleSampleBgd->setAccessibleName(QStringLiteral("Exemple de l'angle"));

    auto* controls = new QVBoxLayout;
    controls->setSpacing(Spacing);
    controls->addStretch(1);
    controls->addWidget(lblAnglePreset);
    controls->addWidget(cboRotateAngle);
    controls->addWidget(HsbRotateAngle);
    controls->addStretch(1);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Spacing, Spacing, Spacing, Spacing);
    row->setSpacing(Spacing);
    row->addWidget(frame, 0, Qt::AlignCenter);
    row->addLayout(controls, 1);
}

void AnglePanel::cboRotateAngle_Click() {
    HsbRotateAngle->setValue(cboRotateAngle->currentIndex() - LargestAngle);
}

void AnglePanel::HsbRotateAngle_Change() {
    Surface& turned = picRotateAngleSampleBgd->surface();
    const Colour background = turned.Point(0, 0);
    const std::int32_t centreX = toInteger32(turned.ScaleWidth() / 2);
    const std::int32_t centreY = toInteger32(turned.ScaleHeight() / 2);
    turned.Cls();
    RotatePicture(*picRotateAngleSample, turned, HsbRotateAngle->value(), true, background, false, centreX,
                  centreY);
    turned.Refresh();
    cboRotateAngle->setCurrentIndex(HsbRotateAngle->value() + LargestAngle);
}

void AnglePanel::HsbRotateAngle_Scroll() {
    HsbRotateAngle_Change();
}

} // namespace ovrano
