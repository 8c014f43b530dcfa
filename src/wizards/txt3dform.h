#pragma once

#include "wizards/picturedialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

#include <array>

namespace ovrano {

/// The style buttons of the two-colour text in their order.
enum TextStyleButton { BoldButton, ItalicButton, UnderlineButton, NormalButton, StrikeOutButton };

/// The controls of the two-colour text and their places, with what they show at first. The lists of fonts,
/// sizes and angles are empty.
class Txt3DForm : public PictureDialog {
    Q_OBJECT

public:
    explicit Txt3DForm(Dialogs& dialogs, QWidget* parent = nullptr);

    /// The picture that is composed; its size is that of the new image.
    Surface& ExamplePic;

    QGroupBox* const Frame3;
    QLineEdit* const Text1; // the text
    QGroupBox* const Frame1;
    QComboBox* const Combo1; // font names
    QGroupBox* const Frame2;
    QComboBox* const Combo2; // sizes in points
    QGroupBox* const Frame4;
    /// Bold, italic, underline, normal, strike-through.
    const std::array<QPushButton*, 5> Command3;
    QGroupBox* const Frame7;
    QCheckBox* const Check1; // outline
    QCheckBox* const Check2; // extrusion
    QCheckBox* const Check3; // relief
    QGroupBox* const Frame5; // usable while there is an extrusion
    QSlider* const Slider1;  // depth in layers of one pixel
    QLabel* const lblDepth;
    QLabel* const Label2;
    QComboBox* const Text2; // angle in degrees
    QGroupBox* const Frame8;
    ColourBox* const LblCoulT;
    ColourBox* const LblCoul3D;
    ColourBox* const LblFond;
    QPushButton* const Command4; // colour of the text
    QPushButton* const Command5; // colour behind it
    QPushButton* const Command6; // colour of the background
    QPushButton* const Command1; // apply
    QPushButton* const Command2; // cancel

protected:
    /// Into the lower right corner.
    void placeOnScreen() override;

private:
    void setUpStyleButtons();
    void setUpDepth();
    void setUpColours();
    void setUpFont();
    void arrange();
    QLayout* textRow();
    QLayout* effectRow();
    QLayout* bottomRow();
};

} // namespace ovrano
