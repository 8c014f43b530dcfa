#pragma once

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

    /// What a drawing does about an angle that is no whole number, which leaves the example empty.
    enum class OnBadAngle { Report, StayQuiet };

    /// Draws the example from scratch with the present settings.
    void DrawExample(OnBadAngle onBadAngle = OnBadAngle::Report);

    void Text1_Change() { redraw(); }
    void Text2_Change() { DrawExample(); }
    void Text2_Click() { DrawExample(); }
    void Text2_Scroll() { redraw(); }
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
    /// Return in a field takes what was typed there and leaves the dialog open.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void fillLists();
    void connectHandlers();
    void connectTyping();

    /// Takes over a font and a size that were typed and not chosen.
    void takeTyped();
    void takeFont();
    void takeSize();
    /// DrawExample() for what has nothing to do with the angle, or comes again and again: nobody wants to be
    /// told of a bad angle for each letter of the text and each step of the slider.
    void redraw() { DrawExample(OnBadAngle::StayQuiet); }
    /// Reads depth and angle; false where this drawing ends here.
    bool readExtrusion(OnBadAngle onBadAngle);
    void reportBadAngle();
    void replaceAngle(const QString& text);
    void shareFont(const std::function<void(QFont& font)>& change);
    void showStyle();

    Handover& m_handover;
    WizardMemory& m_memory;
    double m_points = 0;      // the size that the example is printed in
    bool m_reporting = false; // a bad angle, right now
};

} // namespace ovrano
