#pragma once

#include "platform/colourbox.h"
#include "platform/imagebutton.h"

#include <QFrame>
#include <QPushButton>
#include <QToolButton>

namespace ovrano {

/// The column of buttons at the left of the picture.
class ToolBox : public QFrame {
    Q_OBJECT

public:
    explicit ToolBox(QWidget* parent);

    QToolButton* const Command1;  // save
    QToolButton* const CmdAnnul;  // undo
    ImageButton* const imgRegion; // zone mode
    ImageButton* const imgColorPicker;
    QPushButton* const Command2; // background colour
    ColourBox* const LblFond;
    QPushButton* const cmdCancel; // ends the program

private:
    void arrange();
};

} // namespace ovrano
