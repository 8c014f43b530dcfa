#pragma once

#include "editing/pointermodes.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"

namespace ovrano {

/// The tools of a window with a picture in it, and a mouse over the picture.
struct ToolWindow {
    explicit ToolWindow(const Raster& picture, QSize viewport = QSize(2000, 2000)) {
        work.ImageLoaded = true;
        for (Surface* surface : {&work.picDisp, &work.picSnap, &work.picUndo})
            surface->setInnerSize(picture.size());
        work.picDisp.setPicture(picture);
        work.readImageSize();
        view.picZ->resize(viewport);
        view.setScrollMax();
    }
    explicit ToolWindow(QSize size = QSize(100, 80), QSize viewport = QSize(2000, 2000))
        : ToolWindow(Raster(size, White), viewport) {}

    void moveTo(int x, int y) { modes.picDisp_MouseMove(QPoint(x, y)); }
    void press(int x, int y) {
        moveTo(x, y);
        modes.picDisp_MouseDown(Qt::LeftButton, QPoint(x, y));
    }
    void release(int x, int y) {
        moveTo(x, y);
        modes.picDisp_MouseUp(QPoint(x, y));
    }
    void drag(QPoint from, QPoint to) {
        press(from.x(), from.y());
        release(to.x(), to.y());
    }
    MousePointer pointerAt(int x, int y) {
        moveTo(x, y);
        return view.picDisp->pointer();
    }
    /// The zone from (20, 10) to (59, 39), lifted.
    void liftZone() {
        modes.imgRegion_Click();
        drag(QPoint(20, 10), QPoint(59, 39));
    }

    QWidget widget;
    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    PictureView view{work, &widget};
    LiftedBlock block{work};
    ImageButton imgRegion{QStringLiteral("imgRegion"), QStringLiteral("Zone")};
    ImageButton imgColorPicker{QStringLiteral("imgColorPicker"), QStringLiteral("Pipette")};
    QAction mnuToolsRegion;
    PointerModes modes{work, view, block, imgRegion, imgColorPicker, mnuToolsRegion, dialogs};
};

} // namespace ovrano
