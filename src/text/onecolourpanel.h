#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "editing/pointermodes.h"
#include "text/anglepanel.h"
#include "text/extrusion.h"
#include "text/stylepanel.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QString>

namespace ovrano {

/// The extruded text in shades of one colour: its depth, its direction, and the command that prints it,
/// turns it and hands it over as a lifted block with a transparency mask.
class OneColourPanel : public QGroupBox {
    Q_OBJECT

public:
    OneColourPanel(WorkPicture& work, PictureView& view, LiftedBlock& block, PointerModes& modes,
                   StylePanel& style, AnglePanel& angle, Dialogs& dialogs, QWidget* parent = nullptr);

    QLabel* const lblShadeThickness;
    QComboBox* const cboShadeThickness; // pixels
    QLabel* const Label1;
    QComboBox* const icb1Color3D; // item data: the direction's key
    QPushButton* const cmd1Color3DProceed;

    QString lastWrittenText;

    /// After the check of the inputs, a step that fails is skipped and the next one runs. Only a lack of
    /// memory is reported; then the picture, Undo and an earlier block stay as they were.
    void cmd1Color3DProceed_Click();

Q_SIGNALS:
    /// What the Edit menu allows may have changed.
    void editStateChanged();
    /// The background-colour button and its label can no longer be used.
    void backgroundColourLocked();
    /// The work picture is to take the keyboard focus.
    void pictureFocusRequested();

private:
    void fillLists();
    void drawIcons();
    void arrange();

    bool stamp();

    // The steps of the command; some of its signals are steps, too.
    void releasePicker();
    void scrollHome();
    void emptySurfaces();
    void takeSnapshot();
    void keepBackground();
    void applyFont();
    void widenStamp();
    void heightenStamp();
    void measureInTwips();
    void readColour();
    void readDepth();
    void printStamp();
    void measureInPixels();
    void sizeRegion();
    void turnStamp();
    void cutMask();
    void placeBlock();
    void liftBlock();
    void composeBlock();
    void takeUpTool();
    void resetPointer();
    void rememberText();

    QString text() const { return m_style.txbWriteText->text(); }
    std::int16_t depth() const; // pixels
    Direction direction() const;

    WorkPicture& m_work;
    PictureView& m_view;
    LiftedBlock& m_block;
    PointerModes& m_modes;
    StylePanel& m_style;
    AnglePanel& m_angle;
    Dialogs& m_dialogs;
    Colour m_colour = Black;  // of the farthest layer
    std::int16_t m_depth = 0; // twips
};

} // namespace ovrano
