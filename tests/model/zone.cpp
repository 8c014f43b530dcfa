#include "model/zone.h"

#include <algorithm>
#include <cmath>

namespace ovrano::model {

namespace {

constexpr int Dots = 3; // pixels inverted, then as many left

int whole(float value) {
    return static_cast<int>(std::nearbyint(value)); // halves to even
}

} // namespace

Box Zone::box() const {
    return {whole(s.x1), whole(s.y1), whole(s.x2 - s.x1 + 1), whole(s.y2 - s.y1 + 1)};
}

bool Zone::holds(int x, int y) const {
    const auto fx = static_cast<float>(x);
    const auto fy = static_cast<float>(y);
    return fx >= s.x1 && fx <= s.x2 && fy >= s.y1 && fy <= s.y2;
}

bool Zone::strictlyHolds(int x, int y) const {
    const auto fx = static_cast<float>(x);
    const auto fy = static_cast<float>(y);
    return fx > s.x1 && fx < s.x2 && fy > s.y1 && fy < s.y2;
}

void Zone::drawFrame() {
    const int left = std::min(whole(s.x1), whole(s.x2));
    const int right = std::max(whole(s.x1), whole(s.x2));
    const int top = std::min(whole(s.y1), whole(s.y2));
    const int bottom = std::max(whole(s.y1), whole(s.y2));
    Pixels& shown = s.disp.shown;
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) {
            const bool onFrame = x == left || x == right || y == top || y == bottom;
            const bool dot = (x - left + y - top) / Dots % 2 == 0;
            if (onFrame && dot && shown.has(x, y))
                shown.set(x, y, WhitePixel - shown.get(x, y));
        }
}

void Zone::forget() {
    s.mouseDown = s.hasSelection = s.fromPaste = false;
    s.resizingWidth = s.resizingHeight = false;
    s.x1 = s.x2 = s.y1 = s.y2 = 0;
}

void Zone::clear() {
    forget();
    s.undoAvailable = false;
    s.clearFrame();
}

void Zone::lift() {
    const Box place = box();
    s.clearFrame();
    s.snap.resize(s.disp.shown.width, s.disp.shown.height);
    s.snap.copyAll(s.disp);
    drawFrame();
    s.region.kept = Pixels();
    s.region.shown = Pixels(place.width, place.height, s.disp.ground); // also beyond the picture
    s.region.paste(s.snap.shown, place, 0, 0);
    s.region.keep();
    s.snap.fill(place, s.disp.ground);
    s.snap.keep();
    setLeeway();
    startAt(s.x1, s.y1);
}

void Zone::setLeeway() {
    constexpr double Percent = 80;
    const double width = s.region.shown.width;
    const double height = s.region.shown.height;
    const double left = -(width / 100 * Percent);
    const double top = -(height / 100 * Percent);
    s.minLeft = static_cast<float>(left);
    s.maxLeft = static_cast<float>(s.disp.shown.width - width - left);
    s.maxTop = static_cast<float>(s.disp.shown.height - height - top);
}

void Zone::startAt(float x, float y) {
    s.blockX = s.drawnX = x;
    s.blockY = s.drawnY = y;
    s.grabX = s.grabY = 0;
}

void Zone::compose() {
    const Box size = box();
    s.clearFrame();
    const int oldX = whole(s.drawnX);
    const int oldY = whole(s.drawnY);
    s.disp.paste(s.snap.shown, {oldX, oldY, size.width, size.height}, oldX, oldY);
    const Box all{0, 0, size.width, size.height};
    if (s.transparent)
        s.disp.pasteThrough(s.mask.shown, s.region.shown, all, whole(s.blockX), whole(s.blockY));
    else
        s.disp.paste(s.region.shown, all, whole(s.blockX), whole(s.blockY));
    s.disp.keep();
    if (s.hasSelection)
        drawFrame();
    s.drawnX = s.blockX;
    s.drawnY = s.blockY;
}

void Zone::cutMask() {
    Pixels mask = s.region.shown;
    for (Rgb& colour : mask.colours)
        if (colour != WhitePixel)
            colour = BlackPixel;
    s.mask.take(mask);
}

void Zone::startBand(int x, int y) {
    s.clearFrame();
    s.x1 = s.x2 = static_cast<float>(x);
    s.y1 = s.y2 = static_cast<float>(y);
    drawFrame();
}

void Zone::stretchBand(int x, int y) {
    drawFrame();
    s.x2 = static_cast<float>(x);
    s.y2 = static_cast<float>(y);
    drawFrame();
}

void Zone::endBand() {
    if (s.hasSelection || s.x2 - s.x1 <= 1 || s.y2 - s.y1 <= 1)
        return;
    s.hasSelection = true;
    s.transparent = false;
    lift();
}

void Zone::dragTo(int x, int y) {
    place(s.grabX + static_cast<float>(x), s.grabY + static_cast<float>(y));
}

void Zone::moveBy(int x, int y) {
    place(s.blockX + static_cast<float>(x), s.blockY + static_cast<float>(y));
}

void Zone::place(float x, float y) {
    x = x < s.minLeft ? s.minLeft : x;
    x = x > s.maxLeft ? s.maxLeft : x;
    y = y < s.minLeft ? s.minLeft : y; // the leeway to the left also bounds the top
    y = y > s.maxTop ? s.maxTop : y;
    s.blockX = s.x1 = x;
    s.blockY = s.y1 = y;
    s.x2 = static_cast<float>(s.region.shown.width) + x;
    s.y2 = static_cast<float>(s.region.shown.height) + y;
    compose();
}

void Zone::drop() {
    s.clearFrame();
    s.takeSnapshot();
    clear();
}

} // namespace ovrano::model
