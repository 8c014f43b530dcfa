#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "platform/dialogs.h"
#include "platform/imagebutton.h"
#include "platform/yield.h"

#include <QAction>
#include <QObject>

namespace ovrano {

/// What the mouse does on the work picture: nothing, frame and drag a zone, pick a colour, or resize the
/// picture by its right or bottom edge.
class PointerModes : public QObject {
    Q_OBJECT

public:
    /// Connects itself to the mouse of the view's pictures (shown and hidden) and to the entry, which becomes
    /// checkable. The buttons and the entry belong to the window, which connects the buttons' clicks.
    PointerModes(WorkPicture& work, PictureView& view, LiftedBlock& block, ImageButton& regionButton,
                 ImageButton& pickerButton, QAction& regionEntry, Dialogs& dialogs,
                 QObject* parent = nullptr);

    ImageButton& imgRegion;
    ImageButton& imgColorPicker;
    QAction& mnuToolsRegion; // its check mark mirrors the zone mode

    /// Zone mode on or off; whatever is framed or lifted is forgotten.
    void imgRegion_Click();
    void imgColorPicker_Click();
    /// Turns its check mark and the zone mode with it. Triggering the entry does the same.
    void mnuToolsRegion_Click();
    void Mnu_Pipette_Click();

    // Errors are reported here and go no further. Points are pixels of the picture and may lie outside.
    void picDisp_Click() {}
    void picDisp_MouseDown(Qt::MouseButton button, QPoint at);
    void picDisp_MouseMove(QPoint at);
    void picDisp_MouseUp(QPoint at);
    void picSnap_MouseUp(QPoint at);

    /// Sets the pointer over the picture; pressing the button reads it back to tell an edge drag.
    void UpdatePointerShape(QPoint at);

    /// Leaves the colour picker, whatever it was.
    void releasePicker() { imgColorPicker.setAppearance(0); }

Q_SIGNALS:
    /// The picker chose a colour of the picture.
    void colourPicked(Colour colour);
    /// The background-colour button and its label can no longer be used.
    void backgroundColourLocked();
    /// The last change can no longer be undone.
    void undoLost();

private:
    MousePointer pointerAt(QPoint at) const;
    void followRegionEntry();
    void press(QPoint at);
    void pressInZoneMode(QPoint at);
    void move(QPoint at);
    void moveInZoneMode(QPoint at);
    void release(QPoint at);
    void dragRightEdge(int x);
    void dragBottomEdge(int y);
    void edgeDragged(QChar widthLetter);
    void endEdgeDrag();
    void pickColour(QPoint at);

    WorkPicture& m_work;
    PictureView& m_view;
    LiftedBlock& m_block;
    Dialogs& m_dialogs;
    EventYield m_yield;
};

} // namespace ovrano
