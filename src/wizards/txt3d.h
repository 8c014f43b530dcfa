#pragma once

#include "platform/commondialog.h"
#include "platform/dialogs.h"
#include "wizards/handover.h"
#include "wizards/txt3dform.h"
#include "wizards/wizardmemory.h"

#include <QFont>

#include <cstdint>
#include <functional>

namespace ovrano {

/// Composes a whole new picture: one line of text in one colour on a background, with an outline, a relief or
/// an extrusion in a second colour behind it. The example shows just what becomes the work picture.
///
/// The settings live in the controls and in the example's surface (font, background); what outlives the
/// dialog is in the WizardMemory. Enlarging the dialog enlarges the picture.
class Txt3D : public Txt3DForm {
    Q_OBJECT

public:
    Txt3D(Handover& handover, WizardMemory& memory, Dialogs& dialogs, QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(Txt3D)
    ~Txt3D() override;

    /// Draws the example from scratch with the present settings.
    void DrawExample();

    void Text1_Change() { DrawExample(); }
    void Text2_Change();
    void Text2_Click() { DrawExample(); }
    /// Replaces a character code that the angle must not hold by 0.
    static void Text2_KeyPress(std::int16_t& keyAscii);
    void Slider1_Change();
    void Combo1_Click();
    void Combo2_Click();
    void Command3_Click(int index);
    void Check1_Click();
    void Check2_Click();
    void Check3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command1_Click();
    void Command2_Click() { reject(); }

    /// Leaves the dialog without applying it, however the user does that.
    void reject() override;

protected:
    /// Return in a box to choose from takes what was typed there and leaves the dialog open.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void fillLists();
    void connectHandlers();
    void connectTyping();

    void takeTypedFont();
    void takeTypedSize();
    void redrawInNewSize();
    /// Reads depth and angle; false where this drawing ends here.
    bool readExtrusion();
    void replaceAngle(const QString& text);
    void shareFont(const std::function<void(QFont& font)>& change);
    void showStyle();
    void chooseColour(ColourBox& box, const QString& handler, const std::function<void(Colour colour)>& take);

    Handover& m_handover;
    WizardMemory& m_memory;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
    double m_points = 0; // the size that the example is printed in
};

} // namespace ovrano
