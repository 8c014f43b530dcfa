#include "editing/backgroundcolour.h"

#include "platform/errorreporter.h"
#include "platform/yield.h"

namespace ovrano {

BackgroundColour::BackgroundColour(WorkPicture& work, LiftedBlock& block, QAbstractButton& button,
                                   ColourBox& label, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_block(block)
    , Command2(button)
    , LblFond(label)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {
    connect(&Command2, &QAbstractButton::clicked, this, unlessUnderWay([this] { Command2_Click(); }));
}

void BackgroundColour::Command2_Click() {
    trapErrors(m_dialogs, QStringLiteral("Command2_Click"),
               [this] { apply(CommonDialog1.AskColour(LblFond.BackColor())); });
}

void BackgroundColour::setUsable(bool usable) {
    Command2.setEnabled(usable);
    LblFond.setEnabled(usable);
}

void BackgroundColour::apply(Colour colour) {
    LblFond.setBackColor(colour);
    for (Surface* surface : {&m_work.picDisp, &m_work.picSnap, &m_work.picMask}) {
        surface->setBackColor(colour);
        surface->Refresh();
    }
    m_block.ClearSelection();
}

} // namespace ovrano
