#include "model/hand.h"

#include <algorithm>

namespace ovrano::model {

Shape Hand::shapeAt(int x, int y) const {
    if (isLifted())
        return m_zone.strictlyHolds(x, y) ? Shape::Move : Shape::Cross;
    if (x >= s.disp.shown.width - 2)
        return Shape::LeftRight;
    if (y >= s.disp.shown.height - 2)
        return Shape::UpDown;
    return s.zoneMode ? Shape::Cross : Shape::Arrow;
}

void Hand::hover(int x, int y) {
    if (s.buttonHeld)
        releaseMouse(x, y);
    move(x, y);
}

void Hand::pressMouse(bool left, int x, int y) {
    leave();
    s.buttonHeld = true;
    if (left)
        press(x, y);
}

void Hand::press(int x, int y) {
    if (s.shape == Shape::LeftRight) {
        s.resizingWidth = true;
        s.resizingHeight = false;
        s.edgeX = static_cast<float>(x);
    } else if (s.shape == Shape::UpDown) {
        s.resizingHeight = true;
        s.resizingWidth = false;
        s.edgeY = static_cast<float>(y);
    } else if (!s.picker && s.zoneMode) {
        pressInZoneMode(x, y);
    }
}

void Hand::pressInZoneMode(int x, int y) {
    s.mouseDown = true;
    if (!s.hasSelection) {
        m_zone.startBand(x, y);
    } else if (m_zone.holds(x, y)) {
        s.grabX = s.blockX - static_cast<float>(x);
        s.grabY = s.blockY - static_cast<float>(y);
    } else {
        m_zone.drop();
    }
}

void Hand::move(int x, int y) {
    s.shape = shapeAt(x, y);
    if (s.resizingWidth)
        dragRightEdge(x);
    else if (s.resizingHeight)
        dragBottomEdge(y);
    else if (s.zoneMode && s.mouseDown)
        moveInZoneMode(x, y);
}

void Hand::moveInZoneMode(int x, int y) {
    if (s.hasSelection) {
        m_zone.dragTo(x, y);
        return;
    }
    m_zone.stretchBand(x, y);
    s.horizontal.show(x);
    s.vertical.show(y);
}

void Hand::dragRightEdge(int x) {
    const int wanted = s.disp.shown.width + x - static_cast<int>(s.edgeX);
    const int width = std::max(1, wanted); // the mouse may go on, the edge stays
    s.edgeX += static_cast<float>(width - s.disp.shown.width);
    s.disp.resize(width, s.disp.shown.height);
    s.modified = true;
    s.imageWidth = width; // an undo may have left the height behind, and this does not catch up on it
    s.showSize(u'L');
}

void Hand::dragBottomEdge(int y) {
    const int wanted = s.disp.shown.height + y - static_cast<int>(s.edgeY);
    const int height = std::max(1, wanted);
    s.edgeY += static_cast<float>(height - s.disp.shown.height);
    s.disp.resize(s.disp.shown.width, height);
    s.modified = true;
    s.imageHeight = height;
    s.showSize(u'W'); // another letter than for the width
}

void Hand::releaseMouse(int x, int y) {
    s.buttonHeld = false;
    release(x, y);
}

void Hand::release(int x, int y) {
    s.mouseDown = false;
    s.modified = true;
    if (s.resizingWidth || s.resizingHeight)
        endEdgeDrag();
    else if (s.picker)
        pick(x, y);
    else if (s.zoneMode)
        m_zone.endBand();
}

void Hand::endEdgeDrag() {
    s.resizingWidth = s.resizingHeight = false;
    s.picker = false;
    s.clearFrame();
    const int width = s.disp.shown.width;
    const int height = s.disp.shown.height;
    s.disp.keep();
    s.snap.empty();
    s.snap.resize(width, height);
    s.undo.empty();
    s.undo.resize(width, height);
    s.undoAvailable = false;
    s.fitBars(); // the label keeps the letter of the edge that was dragged
    s.updateEditMenu();
}

void Hand::pick(int x, int y) {
    s.picker = false;
    s.disp.clear();
    s.disp.keep();
    if (s.disp.shown.has(x, y))
        s.textColour = s.disp.shown.get(x, y);
}

void Hand::arrow(int x, int y) {
    if (isLifted())
        return moveBlock(x, y);
    if (s.disp.shown.isEmpty())
        return;
    findPointer();
    s.keyX += x;
    s.keyY += y;
    if (!s.keyPressed) { // a gesture may leave the picture
        s.keyX = std::max(0, std::min(s.keyX, s.disp.shown.width - 1));
        s.keyY = std::max(0, std::min(s.keyY, s.disp.shown.height - 1));
    }
    for (const int edge : {0, 1}) { // both sides of the pixel
        s.horizontal.show(s.keyX + edge);
        s.vertical.show(s.keyY + edge);
    }
    s.keyMoved = true;
    s.keyInViewX = s.keyX - s.horizontal.value;
    s.keyInViewY = s.keyY - s.vertical.value;
    move(s.keyX, s.keyY);
}

void Hand::moveBlock(int x, int y) {
    m_zone.moveBy(x, y);
    s.modified = true;
    const Box place = m_zone.box(); // its middle stays in view
    s.horizontal.show((place.x + place.x + place.width - 1) / 2);
    s.vertical.show((place.y + place.y + place.height - 1) / 2);
}

/// Whether the pointer still stands over a pixel that can be seen where the keys left it in the viewport; the
/// picture may have been scrolled below it.
bool Hand::pointerStayed() {
    const int x = s.keyInViewX + s.horizontal.value;
    const int y = s.keyInViewY + s.vertical.value;
    const bool same = x == s.keyX && y == s.keyY;
    if (!s.keyMoved || !s.disp.shown.has(x, y) || !(same || (s.horizontal.shows(x) && s.vertical.shows(y))))
        return false;
    s.keyX = x;
    s.keyY = y;
    return true;
}

/// Keys start from the middle of what is to be seen.
void Hand::findPointer() {
    if (s.keyPressed || pointerStayed())
        return;
    const int width = std::min(s.horizontal.viewport, s.disp.shown.width - s.horizontal.value);
    const int height = std::min(s.vertical.viewport, s.disp.shown.height - s.vertical.value);
    s.keyX = width < 1 ? 0 : s.horizontal.value + (width - 1) / 2;
    s.keyY = height < 1 ? 0 : s.vertical.value + (height - 1) / 2;
}

void Hand::space() {
    if (s.keyPressed)
        return leave();
    if (s.disp.shown.isEmpty())
        return;
    findPointer();
    s.keyPressed = true;
    move(s.keyX, s.keyY);
    press(s.keyX, s.keyY);
}

void Hand::leave() {
    if (!s.keyPressed)
        return;
    s.keyPressed = false;
    release(s.keyX, s.keyY);
}

void Hand::enter() {
    if (!isLifted())
        return;
    m_zone.drop();
    s.modified = true;
    s.updateEditMenu();
}

void Hand::zoneButton() {
    s.zoneMode = !s.zoneMode;
    if (s.zoneMode)
        s.transparent = false;
    s.picker = false;
    m_zone.clear();
    s.backgroundUsable = false;
}

void Hand::zoneEntry() {
    s.zoneMode = !s.zoneMode;
}

void Hand::chooseTextColour(Rgb colour) {
    s.picker = false;
    s.textColour = colour;
}

void Hand::pickerButton() {
    s.picker = !s.picker;
}

} // namespace ovrano::model
