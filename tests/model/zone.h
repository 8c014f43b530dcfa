#pragma once

#include "model/state.h"

namespace ovrano::model {

/// The selection rectangle and the lifted block.
class Zone {
public:
    explicit Zone(State& state)
        : s(state) {}

    /// The rectangle in whole pixels.
    Box box() const;
    bool holds(int x, int y) const;
    bool strictlyHolds(int x, int y) const;

    /// Inverts a dotted frame along the rectangle.
    void drawFrame();
    /// Forgets rectangle and block.
    void forget();
    /// The same, and that there is something to undo, and removes the frame.
    void clear();
    /// Makes a block of what is framed.
    void lift();
    void setLeeway();
    void startAt(float x, float y);
    /// Takes the block off its last place and draws it at its present one.
    void compose();
    /// Everything that is not white becomes opaque.
    void cutMask();

    void startBand(int x, int y);
    void stretchBand(int x, int y);
    void endBand();
    void dragTo(int x, int y);
    void moveBy(int x, int y);
    void drop();

private:
    void place(float x, float y);

    State& s;
};

} // namespace ovrano::model
