#pragma once

#include "document/workpicture.h"
#include "platform/yield.h"

#include <QObject>

namespace ovrano {

/// Where a block is and what is being done to it. Coordinates are pixels of picDisp; the rectangle includes
/// all four edges.
struct BlockState {
    float SelX1 = 0, SelX2 = 0, SelY1 = 0, SelY2 = 0;
    float CurrX = 0, CurrY = 0;   // where the block's corner is now
    float PrevX = 0, PrevY = 0;   // where it was drawn last, to be restored from picSnap
    float GrabDX = 0, GrabDY = 0; // block corner minus mouse position when it was grabbed
    float MinLeft = 0, MinTop = 0, MaxLeft = 0, MaxTop = 0; // where the corner may be dragged to
    bool MouseIsDown = false;                               // the left button is down in zone mode
    bool HasSelection = false;                              // a block is lifted
    bool TransparentPaste = false;                          // it is composed through picMask
    bool BlockFromPaste = false;                            // it came from a paste
    bool ResizingWidth = false, ResizingHeight = false;     // an edge of the picture is being dragged
    /// Where the mouse has taken the edge to: its last position, but never beyond the smallest picture.
    float ResizeStartX = 0, ResizeStartY = 0;
};

/// The selection rectangle and the block that is lifted off the work picture: a zone, a pasted picture or a
/// text stamp.
class LiftedBlock : public QObject, public BlockState {
    Q_OBJECT

public:
    /// How much of its own size a block may hang over each edge of the picture.
    static constexpr double LeeWayPercent = 80;

    explicit LiftedBlock(WorkPicture& work, QObject* parent = nullptr);

    const BlockState& state() const { return *this; }
    void setState(const BlockState& state) { BlockState::operator=(state); }

    /// Lets the moved surface hang over each edge of its container by a percentage of its own size.
    void SetLeeWay(const Surface& moved, const Surface& container, double percent);
    void SetPrevAndCurrValues(float x, float y);
    /// Forgets the rectangle and its flags (and that there is something to undo) and removes whatever was
    /// drawn over the committed picture.
    void ClearSelection();
    /// The same for the rectangle and its flags alone: another picture has come.
    void forget();
    /// Keeps what picDisp shows, at its size, as the background under a block. False when the copy failed,
    /// which has been reported; so below.
    bool keepBackground();
    /// Makes picMask black where picRegion is not white: where the block is opaque.
    bool cutMask();
    void NormaliseSelection();
    /// Inverts a dotted frame along the rectangle: a second call at the same place erases it.
    void DrawSelectionFrame();
    /// Lifts the framed block into picRegion and leaves background colour behind in picSnap.
    void CaptureSelection();
    /// Draws the block at CurrX, CurrY over the restored picture, commits, and frames it.
    void ComposeRegion();

    /// The selection rectangle in whole pixels.
    QRect zone() const;
    /// Fills the rectangle but for its right column and bottom row, on purpose, with the background colour
    /// and commits.
    void fillPlace();

    // What the mouse does with them, in picture pixels.
    /// Inside the rectangle or on one of its edges.
    bool contains(QPoint point) const;
    /// Inside the rectangle but not on its edges.
    bool encloses(QPoint point) const;
    /// Keeps a point of the block under the mouse from now on.
    void grab(QPoint mouse);
    /// Starts an edge drag at a mouse position.
    void takeRightEdge(int x);
    void takeBottomEdge(int y);
    // Without memory for a step (error::OutOfMemory) the block stays whole where it is, lifted and framed.
    /// Moves the block so that the point it was grabbed at follows the mouse, as far as the leeway goes.
    void dragTo(QPoint mouse);
    /// Moves the block by some pixels, as far as the leeway goes.
    void moveBy(QPoint pixels);
    /// Leaves the block where it stands. It has been committed with its last step already.
    void drop();
    /// Starts a band at a point: the dotted rectangle that will be lifted.
    void startBand(QPoint mouse);
    /// Draws the band's free corner to another point.
    void stretchBand(QPoint mouse);
    /// Lifts what the band frames when it goes right and down by more than one pixel; another band stays
    /// drawn, and a block that is lifted already stays as it is.
    void endBand();

private:
    /// What composing may do to the pixels that it draws over: without memory for new ones it leaves them
    /// half drawn, or it takes that memory before it begins.
    enum class Memory { AsNeeded, Beforehand };

    /// Where a block was drawn last and where it is to be drawn.
    struct Places {
        QRect before;
        QRect now;
        QRegion touched() const { return QRegion(before) + now; }
    };

    /// Moves the block's corner, as far as the leeway goes.
    void moveTo(float x, float y);
    /// Puts the background back and draws the block.
    void compose(Raster& image, const Places& places, EventYield* yield = nullptr) const;
    void composeRegion(Memory memory);
    void composeBeside(const Places& places);
    QSize selectionSize() const; // in whole pixels, both edges included
    void drawBox(Surface& surface, Colour colour, BoxStyle style) const;

    WorkPicture& m_work;
};

} // namespace ovrano
