#pragma once

#include "document/workpicture.h"
#include "platform/colourbox.h"
#include "platform/commondialog.h"
#include "platform/dialogs.h"
#include "platform/imagebutton.h"
#include "platform/surface.h"
#include "text/textsample.h"

#include <QComboBox>
#include <QFont>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <cstdint>

namespace ovrano {

/// The text to be written, its font, size, style and colour, with a sample of them.
///
/// The settings live in the controls. The colour is held twice, as the background of picTextColor and in the
/// caption of lblTextColor, which differ where the caption's format shortens a channel.
class StylePanel : public QGroupBox {
    Q_OBJECT

public:
    StylePanel(WorkPicture& work, Dialogs& dialogs, QWidget* parent = nullptr);

    QLineEdit* const txbWriteText;
    QComboBox* const cboFontName;
    QLabel* const lblFontSize1;
    QComboBox* const txtFontSize;
    ImageButton* const imgBold;
    ImageButton* const imgItalic;
    QFrame* const shpTextSample;
    TextSample* const lblTextSample;
    ColourBox* const picTextColor;
    QPushButton* const cmdTextColor;
    QLabel* const lblTextColor;

    // The channels of the last colour that was shown, 0 to 255 each.
    std::int16_t ColorRed = 0;
    std::int16_t ColorGreen = 0;
    std::int16_t ColorBlue = 0;

    /// Whether a text can be written with these settings; if not, a message says why.
    bool CheckTextInputs();
    /// Gives a surface the panel's font and colour.
    void ApplyTextFont(Surface& surface) const;
    void UpdateTextSample();
    /// Makes a colour the text colour. Reading beside the picture gives no colour and changes nothing.
    void DispDialogColor(Colour colour);

    void cboFontName_Click();
    /// Replaces a character code that the size must not hold by 0.
    void txtFontSize_KeyPress(std::int16_t& keyAscii);
    void txtFontSize_Change();
    void imgBold_Click();
    void imgItalic_Click();
    void cmdTextColor_Click();
    void Mnu_ChoixCouleur_Click() { cmdTextColor_Click(); }

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();
    /// The work picture is to take the keyboard focus.
    void pictureFocusRequested();

private:
    void fillLists();
    void setUpSample();
    void setUpColour();
    void arrange();
    void connectHandlers();
    void checkTypedFont();
    void toggle(ImageButton& button);
    bool isSizeInRange() const;
    QFont chosenFont() const;
    /// For those who do not see the sample: "Arial, 24 points, gras".
    QString fontInWords() const;

    WorkPicture& m_work;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
};

} // namespace ovrano
