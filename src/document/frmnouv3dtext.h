#pragma once

#include "platform/colourbox.h"
#include "platform/commondialog.h"
#include "platform/dialogs.h"

#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <cstdint>

namespace ovrano {

/// What the dialog for a new picture hands back. The values stay from one dialog to the next.
struct NewImageChoice {
    std::int16_t NewImageCancelled = 0; // 1 when the picture is to stay as it is
    double NewImageWidth = 0;           // pixels
    double NewImageHeight = 0;
    Colour NewImageBackColor = Black;
};

/// "Nouveau texte 3D": asks for the size and the background colour of a new picture.
///
/// "A&nnuler" and Escape cancel. The close box does not: it leaves all values as they were, so the picture of
/// the last accepted dialog is built again. This is kept on purpose.
class FrmNouv3DText : public QDialog {
    Q_OBJECT

public:
    FrmNouv3DText(NewImageChoice& choice, Dialogs& dialogs, QWidget* parent = nullptr);

    QGroupBox* const Frame1;
    QLabel* const Label1;
    QLineEdit* const Text1; // width
    QLabel* const Label2;
    QLineEdit* const Text2; // height
    QGroupBox* const Frame2;
    ColourBox* const LabCoulFond;
    QPushButton* const Command1;
    QPushButton* const Command2;
    QPushButton* const Command3;

    /// Asks for the colour.
    void Command1_Click();
    /// Accepts.
    void Command2_Click();
    /// Cancels.
    void Command3_Click();
    // Replace a character code that a size must not hold by 0.
    void Text1_KeyPress(std::int16_t& keyAscii);
    void Text2_KeyPress(std::int16_t& keyAscii);

    /// Escape.
    void reject() override { Command3_Click(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void setUpSizes();
    void arrange();

    NewImageChoice& m_choice;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
};

} // namespace ovrano
