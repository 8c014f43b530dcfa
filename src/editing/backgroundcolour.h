#pragma once

#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "platform/colourbox.h"
#include "platform/commondialog.h"

#include <QAbstractButton>
#include <QObject>

namespace ovrano {

/// The background colour of the work picture: the button that changes it and the label that shows it.
class BackgroundColour : public QObject {
    Q_OBJECT

public:
    BackgroundColour(WorkPicture& work, LiftedBlock& block, QAbstractButton& button, ColourBox& label,
                     Dialogs& dialogs, QObject* parent = nullptr);

    /// Asks for a colour; what was drawn and not committed is lost, the persistent picture stays.
    void Command2_Click();

    /// The button and its label can be used only while no tool holds the picture's background.
    void setUsable(bool usable);
    void lock() { setUsable(false); }
    void unlock() { setUsable(true); }

private:
    void apply(Colour colour);

    WorkPicture& m_work;
    LiftedBlock& m_block;
    QAbstractButton& Command2;
    ColourBox& LblFond;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
};

} // namespace ovrano
