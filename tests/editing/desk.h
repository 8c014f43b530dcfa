#pragma once

#include "editing/liftedblock.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"

namespace ovrano {

/// A work picture and what is lifted off it.
struct Desk {
    explicit Desk(const Raster& picture) {
        work.ImageLoaded = true;
        for (Surface* surface : {&work.picDisp, &work.picSnap}) {
            surface->setInnerSize(picture.size());
            surface->setPicture(Raster());
        }
        work.picDisp.setPicture(picture);
    }
    explicit Desk(const QStringList& rows)
        : Desk(grid(rows)) {}

    void select(float x1, float y1, float x2, float y2) {
        block.SelX1 = x1;
        block.SelY1 = y1;
        block.SelX2 = x2;
        block.SelY2 = y2;
    }
    /// Lifts a zone as the release of the mouse does.
    void lift(float x1, float y1, float x2, float y2) {
        select(x1, y1, x2, y2);
        block.HasSelection = true;
        block.CaptureSelection();
    }
    QStringList committed() const { return rowsOf(work.picDisp.Picture()); }

    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    LiftedBlock block{work};
};

/// A picture with a dotted, inverting frame drawn over it.
inline Raster framed(const Raster& picture, const QRect& frame) {
    Surface surface(QStringLiteral("framed"), picture.size());
    surface.setPicture(picture);
    surface.setDrawMode(DrawMode::Invert);
    surface.setDrawStyle(DrawStyle::Dotted);
    surface.Line(frame.topLeft(), frame.bottomRight(), Black, BoxStyle::Outline);
    return surface.Image();
}

/// Every pixel another colour.
inline Raster colourful(QSize size) {
    Raster raster(size, White);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            raster.setPixel(x, y, rgb(x % 251, y % 253, (x + y) % 256));
    return raster;
}

inline Raster part(const Raster& picture, const QRect& area) {
    Raster raster(area.size(), Black);
    raster.copyFrom(picture, area, QPoint(0, 0));
    return raster;
}

} // namespace ovrano
