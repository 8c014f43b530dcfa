#include "model/state.h"

#include <algorithm>
#include <cmath>

namespace ovrano::model {

void ScrollBar::fit(int picture) {
    max = picture - viewport;
    if (max < 1) {
        max = 0;
    } else {
        const float ratio = static_cast<float>(viewport) / static_cast<float>(max);
        arrowStep = ratio < 1 ? 1 : static_cast<int>(std::nearbyint(ratio));
        pageStep = arrowStep;
        if (max >= 40)
            pageStep = std::max(arrowStep, static_cast<int>(std::nearbyint(max / 20.0)));
    }
    go(value);
}

void ScrollBar::show(int coordinate) {
    if (coordinate > value + viewport)
        go(coordinate - viewport);
    else if (coordinate < value)
        go(coordinate);
}

void State::readSize() {
    imageWidth = disp.shown.width;
    imageHeight = disp.shown.height;
}

void State::showSize(QChar widthLetter) {
    sizeLabel = QStringLiteral("%1=%2  H=%3").arg(widthLetter).arg(imageWidth).arg(imageHeight);
}

void State::fitBars() {
    horizontal.fit(disp.shown.width);
    vertical.fit(disp.shown.height);
}

void State::fit() {
    readSize();
    fitBars();
    showSize();
}

void State::scrollHome() {
    horizontal.go(0);
    vertical.go(0);
}

void State::takeSnapshot() {
    undo.resize(disp.shown.width, disp.shown.height);
    undo.copyAll(disp);
    undoAvailable = true;
}

void State::updateEditMenu() {
    editMenu.undo = undoAvailable;
    editMenu.cut = hasSelection && loaded;
    editMenu.copy = loaded;
    editMenu.paste = loaded && clipboard.has_value();
    editMenu.pasteFile = loaded;
}

} // namespace ovrano::model
