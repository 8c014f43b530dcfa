#pragma once

#include "model/pixels.h"

namespace ovrano::model {

/// A surface: what is kept on it, what it shows, and the ground beside what is kept. The size is that of what
/// it shows.
class Sheet {
public:
    explicit Sheet(int width = 0, int height = 0)
        : shown(width, height, WhitePixel) {}

    Pixels kept;
    Pixels shown;
    Rgb ground = WhitePixel;

    /// Shows nothing but what is kept.
    void clear();
    /// Keeps what it shows.
    void keep() { kept = shown; }
    /// Keeps nothing.
    void empty();
    /// Keeps a picture and shows it, at its own size.
    void take(const Pixels& picture);
    /// What was shown inside the new size stays; beside it comes what is kept, or the ground.
    void resize(int width, int height);
    /// Becomes a copy of what another one shows, in its upper-left corner.
    void copyAll(const Sheet& other);
    void setGround(Rgb colour);

    void fill(const Box& box, Rgb colour);
    /// The part `from` of a picture, with its upper-left corner at (x, y). What lies outside either is left
    /// out.
    void paste(const Pixels& source, const Box& from, int x, int y);
    /// The same, but only where the mask is black.
    void pasteThrough(const Pixels& mask, const Pixels& source, const Box& from, int x, int y);

private:
    Rgb below(int x, int y) const { return kept.has(x, y) ? kept.get(x, y) : ground; }
};

} // namespace ovrano::model
