#pragma once

#include "platform/picturebox.h"
#include "platform/surface.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QScrollBar>

namespace ovrano {

/// The angle at which a text is laid on the picture, in whole degrees counter-clockwise, with a sample.
///
/// The angle lives in the scroll bar; the list mirrors it.
class AnglePanel : public QGroupBox {
    Q_OBJECT

public:
    static constexpr int LargestAngle = 360;

    explicit AnglePanel(QWidget* parent = nullptr);

    QLabel* const lblAnglePreset;
    QComboBox* const cboRotateAngle; // list position: the angle + 360
    QScrollBar* const HsbRotateAngle;
    Surface* const picRotateAngleSample; // hidden, never turned itself
    PictureBox* const picRotateAngleSampleBgd;

    int angle() const { return HsbRotateAngle->value(); }

    void cboRotateAngle_Click();
    void HsbRotateAngle_Change();
    /// The sample and the list follow the thumb while it is dragged.
    void HsbRotateAngle_Scroll();

private:
    void fillList();
    void setUpScrollBar();
    void drawSample();
    void arrange();
};

} // namespace ovrano
