#pragma once

#include "model/zone.h"

namespace ovrano::model {

/// What the mouse and the keys do on the picture. Coordinates are pixels of the picture and may lie outside.
class Hand {
public:
    Hand(State& state, Zone& zone)
        : s(state)
        , m_zone(zone) {}

    /// A move without a button, which also ends a gesture whose release got lost.
    void hover(int x, int y);
    void pressMouse(bool left, int x, int y);
    /// A move with the button held.
    void move(int x, int y);
    void releaseMouse(int x, int y);
    /// By 1 or 10 pixels: the lifted block, otherwise the pointer.
    void arrow(int x, int y);
    void space();
    void enter();
    /// The keyboard goes elsewhere, and what the space bar has begun is over.
    void leave();

    void zoneButton();
    void zoneEntry();
    void pickerButton();
    void chooseTextColour(Rgb colour);

private:
    Shape shapeAt(int x, int y) const;
    void press(int x, int y);
    void release(int x, int y);
    void pressInZoneMode(int x, int y);
    void moveInZoneMode(int x, int y);
    void dragRightEdge(int x);
    void dragBottomEdge(int y);
    void endEdgeDrag();
    void pick(int x, int y);
    bool isLifted() const { return s.zoneMode && s.hasSelection; }
    void moveBlock(int x, int y);
    bool pointerStayed();
    void findPointer();

    State& s;
    Zone& m_zone;
};

} // namespace ovrano::model
