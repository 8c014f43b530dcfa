#pragma once

#include "model/sheet.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace ovrano::model {

/// The pointer over the picture.
enum class Shape { Arrow, Cross, UpDown, LeftRight, Move };

struct ScrollBar {
    int max = 0, arrowStep = 1, pageStep = 1, value = 0;
    int viewport = 0;

    bool shows(int coordinate) const { return coordinate >= value && coordinate < value + viewport; }
    void go(int to) { value = to < 0 ? 0 : to > max ? max : to; }
    /// The picture or the viewport has another size.
    void fit(int picture);
    /// Moves as little as possible so that a coordinate comes into view.
    void show(int coordinate);
};

/// What the Edit menu showed when it was last brought up to date. The undo button is enabled with `undo`.
struct EditMenu {
    bool undo = false, cut = false, copy = false, paste = false, pasteFile = false;
    bool operator==(const EditMenu&) const = default;
};

/// All that the program knows and shows, as plain values.
struct State {
    Sheet disp{640, 480}, undo{640, 480}, snap{640, 480}, region, mask;

    bool loaded = true, modified = false, undoAvailable = false, saveCancelled = false;
    int imageWidth = 640, imageHeight = 480;
    QString fileName;
    QString fileLabel = QStringLiteral("Sans Nom");
    QString sizeLabel = QStringLiteral("L=640  H=480");

    float x1 = 0, x2 = 0, y1 = 0, y2 = 0; // the selection rectangle, all edges included
    float blockX = 0, blockY = 0;         // the lifted block's corner
    float drawnX = 0, drawnY = 0;         // where it was drawn last
    float grabX = 0, grabY = 0;           // its corner minus the mouse
    float minLeft = 0, maxLeft = 0, maxTop = 0;
    bool mouseDown = false, hasSelection = false, transparent = false, fromPaste = false;
    bool resizingWidth = false, resizingHeight = false;
    float edgeX = 0, edgeY = 0; // where the mouse has taken the edge to
    bool buttonHeld = false;    // a press whose release has not been seen

    int keyX = 0, keyY = 0;             // where the keys have taken the pointer to
    int keyInViewX = 0, keyInViewY = 0; // the same in the viewport
    bool keyMoved = false;              // they have
    bool keyPressed = false;            // the space bar has pressed the button

    bool zoneMode = false, picker = false;
    Shape shape = Shape::Arrow;
    bool backgroundUsable = true;
    Rgb background = WhitePixel;
    Rgb textColour = 0x004080;

    ScrollBar horizontal, vertical;
    EditMenu editMenu;
    bool textTools = true; // the panels for one-coloured text are there

    std::optional<Pixels> clipboard; // the picture on it
    int newWidth = 0, newHeight = 0; // of the last accepted dialog for a new picture
    Rgb newColour = BlackPixel;

    QString folder;              // where files are chosen, with its last slash
    QMap<QString, Pixels> files; // the pictures in it
    QStringList asked;           // message boxes of the last step; one that ends in * only starts so
    QString proposedName;        // by the last save dialog

    void clearFrame() { disp.clear(); }
    void readSize();
    void showSize(QChar widthLetter = u'L');
    /// The picture may have another size: the bars follow.
    void fitBars();
    /// The same, and sizes and label follow.
    void fit();
    void scrollHome();
    void takeSnapshot();
    void updateEditMenu();
};

} // namespace ovrano::model
