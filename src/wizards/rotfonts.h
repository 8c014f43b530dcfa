#pragma once

#include "wizards/handover.h"
#include "wizards/rotfontsform.h"
#include "wizards/wizardmemory.h"

#include <QFont>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

namespace ovrano {

/// Lays a text along a circle on a preview picture and makes the preview the work picture.
///
/// The settings live in the controls and are not checked: what is no number counts as the number that it
/// starts with, or 0. A number too large for what it is used for leaves the preview empty, but for the size
/// of the letters: 999 points is the largest.
class RotFonts : public RotFontsForm {
    Q_OBJECT

public:
    /// `programFolder` is where Apply writes its temporary file.
    RotFonts(Handover& handover, WizardMemory& memory, Dialogs& dialogs, const QString& programFolder,
             QWidget* parent = nullptr);
    Q_DISABLE_COPY_MOVE(RotFonts)
    ~RotFonts() override;

    std::int16_t AutoRefresh = 0; // 1 while every change is drawn at once

    void Check1_Click();
    /// Dessiner.
    void Command1_Click();
    void cmdColor_Click();
    void Command2_Click();
    /// Appliquer: the dialog closes as accepted. Without memory the work picture stays what it was and the
    /// dialog open.
    void Command3_Click();
    /// Défaut.
    void Command4_Click();
    /// Fermer: the dialog closes as rejected.
    void Command5_Click();
    /// The window has become the active one.
    void Form_Activate() { Command1_Click(); }

    /// The close box and Escape do as Fermer.
    void reject() override { Command5_Click(); }

    /// Blocks for so many seconds of elapsed time; midnight and changes of the clock make no difference.
    /// Negative, infinite and NaN delays return at once.
    static void waitFor(float seconds);

protected:
    bool event(QEvent* event) override;
    /// Tells when a field is left or clicked.
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// A centre that nobody has changed is the middle of the picture.
    void firstShown() override;

private:
    /// What Dessiner has drawn.
    struct Drawing {
        QString text;
        QFont font;
        Colour colour;
        float startAngle;
        float radius;
        std::int16_t centreX;
        std::int16_t centreY;
        float sector;
    };

    void connectFields();
    void connectButtons();
    void refresh();
    void redrawResized();
    bool preview(const QString& handler, const std::function<Drawing()>& drawing);
    void setCentreDefaults();
    Drawing settings() const;
    void print(Surface& target, const Drawing& drawing) const;
    void printOnWorkPicture();
    void passThroughFile();
    void giveToCompanions(const Raster& picture);

    Handover& m_handover;
    WizardMemory& m_memory;
    const QString m_programFolder;
    QString m_defaultX; // the default centre last put into the fields
    QString m_defaultY;
    std::optional<Drawing> m_drawn; // what the preview shows; nothing when it shows the background alone
    bool m_ownDialogActive = false; // the window lost the activation to a dialog of its own
};

} // namespace ovrano
