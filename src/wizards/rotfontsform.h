#pragma once

#include "wizards/picturedialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ovrano {

/// The controls of the circular text dialog, filled and in their places.
class RotFontsForm : public PictureDialog {
    Q_OBJECT

public:
    explicit RotFontsForm(Dialogs& dialogs, QWidget* parent = nullptr);

    Surface& Picture1; // the preview; its size is the new picture's

    QLabel* const Label3;
    QLineEdit* const Text1;
    QGroupBox* const Frame1;
    QGroupBox* const Frame5;
    QLabel* const Label1;
    QComboBox* const txtRaggio;
    QLabel* const Label2;
    QComboBox* const txtSettore;
    QLabel* const Label4;
    QComboBox* const txtDegree;
    QGroupBox* const Frame4;
    QLabel* const Label5;
    QLineEdit* const TxtCX;
    QLabel* const Label6;
    QLineEdit* const TxtCY;
    QPushButton* const Command4;
    QGroupBox* const Frame3;
    QComboBox* const txtFont;
    QLabel* const Label7;
    QComboBox* const txtSize;
    QGroupBox* const Frame2;
    ColourBox* const LblCoulTexte;
    QPushButton* const cmdColor;
    ColourBox* const LblFond;
    QPushButton* const Command2;
    QCheckBox* const Check1;
    QPushButton* const Command1;
    QPushButton* const Command3;
    QPushButton* const Command5;

private:
    void fillLists();
    QLayout* anglesAndRadius();
    QLayout* centre();
    QLayout* font();
    QLayout* colours();
    void arrangeSettings();
    /// Gives the fields of all groups one left edge.
    void alignFields();
    void arrange();
    void orderTabs();
};

} // namespace ovrano
