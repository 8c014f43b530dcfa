#pragma once

#include "document/undo.h"
#include "editing/copycut.h"
#include "editing/desk.h"
#include "editing/paste.h"
#include "editing/toolwindow.h"
#include "platform/clipboard.h"
#include "support/otherprogram.h"

#include <QSignalSpy>
#include <QTest>

namespace ovrano {

/// The tools of a window together with the commands that go through the clipboard and through files.
struct ClipboardDesk : ToolWindow {
    explicit ClipboardDesk(const Raster& picture, QSize viewport = QSize(2000, 2000))
        : ToolWindow(picture, viewport) {
        work.picAuto.setAutoSize(true);
        work.showFileName(QStringLiteral("/some/where.bmp"));
    }
    explicit ClipboardDesk(QSize size = QSize(400, 300))
        : ClipboardDesk(colourful(size)) {}

    const Raster& picture() const { return work.picDisp.Picture(); }
    const Raster& shown() const { return work.picDisp.Image(); }
    void select(float x1, float y1, float x2, float y2) {
        block.SelX1 = x1;
        block.SelY1 = y1;
        block.SelX2 = x2;
        block.SelY2 = y2;
    }
    /// Lifts a zone by mouse; both corners belong to it.
    void lift(QPoint from, QPoint to) {
        if (!imgRegion.isOn())
            modes.imgRegion_Click();
        drag(from, to);
    }
    QRectF selection() const {
        return QRectF(QPointF(double(block.SelX1), double(block.SelY1)),
                      QPointF(double(block.SelX2), double(block.SelY2)));
    }
    /// The one message that came up; empty when there was none or several.
    QString message() const { return dialogs.messages.size() == 1 ? dialogs.messages.at(0).text : QString(); }
    bool isInputError() const {
        const MessageBox box = dialogs.messages.value(0);
        return box.title == QStringLiteral("Erreur") && box.icon == Icon::Information &&
               box.buttons == Buttons::Ok;
    }

    CopyCut copyCut{work, block, dialogs};
    Paste paste{work, view, block, imgRegion, dialogs};
    Undo undo{work, view, dialogs};
};

/// A picture with another one laid over it.
inline Raster laidOver(Raster below, const Raster& above, QPoint at = QPoint(0, 0)) {
    below.copyFrom(above, above.rect(), at);
    return below;
}

inline Raster filledBox(Raster picture, const QRect& box, Colour colour) {
    picture.fill(box, colour);
    return picture;
}

} // namespace ovrano
