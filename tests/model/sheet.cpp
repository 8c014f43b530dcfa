#include "model/sheet.h"

namespace ovrano::model {

void Sheet::clear() {
    for (int y = 0; y < shown.height; ++y)
        for (int x = 0; x < shown.width; ++x)
            shown.set(x, y, below(x, y));
}

void Sheet::empty() {
    kept = Pixels();
    clear();
}

void Sheet::take(const Pixels& picture) {
    kept = picture;
    shown = picture;
}

void Sheet::resize(int width, int height) {
    const Pixels before = shown;
    shown = Pixels(width, height, ground);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            shown.set(x, y, before.has(x, y) ? before.get(x, y) : below(x, y));
}

void Sheet::copyAll(const Sheet& other) {
    empty();
    paste(other.shown, {0, 0, other.shown.width, other.shown.height}, 0, 0);
    keep();
}

void Sheet::setGround(Rgb colour) {
    ground = colour;
    clear();
}

void Sheet::fill(const Box& box, Rgb colour) {
    for (int y = box.y; y < box.y + box.height; ++y)
        for (int x = box.x; x < box.x + box.width; ++x)
            if (shown.has(x, y))
                shown.set(x, y, colour);
}

void Sheet::paste(const Pixels& source, const Box& from, int x, int y) {
    pasteThrough(Pixels(source.width, source.height, BlackPixel), source, from, x, y);
}

void Sheet::pasteThrough(const Pixels& mask, const Pixels& source, const Box& from, int x, int y) {
    for (int row = 0; row < from.height; ++row)
        for (int column = 0; column < from.width; ++column) {
            const int sourceX = from.x + column;
            const int sourceY = from.y + row;
            if (source.has(sourceX, sourceY) && shown.has(x + column, y + row) &&
                mask.get(sourceX, sourceY) == BlackPixel)
                shown.set(x + column, y + row, source.get(sourceX, sourceY));
        }
}

} // namespace ovrano::model
