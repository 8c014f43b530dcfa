#include "document/topics.h"
#include "document/undo.h"
#include "support/comparison.h"
#include "support/noquestions.h"
#include "support/pictures.h"

#include <QWidget>

#include <cmath>
#include <cstring>
#include <memory>

namespace ovrano::bench {

namespace {

/// A work picture of some size, and the same picture as plain rows.
struct Document {
    explicit Document(QSize size)
        : flat(photo(size))
        , copied(size, QImage::Format_RGB32) {
        copied.fill(0); // so that its memory is there
        work.picDisp.setInnerSize(size);
        work.picDisp.setPicture(Raster::fromImage(flat));
        // As after some work: each tile has memory of its own.
        work.picDisp.copyFrom(work.picDisp, QRect(QPoint(0, 0), size), QPoint(0, 0));
        const int side = static_cast<int>(std::sqrt(size.width() * double(size.height()) / 100));
        onePercent = QRect(size.width() / 3 + 5, size.height() / 3 + 9, side, side);
    }

    void write() {
        work.picDisp.Line(QPointF(onePercent.topLeft()), QPointF(onePercent.bottomRight()), rgb(1, 2, 3),
                          BoxStyle::Filled);
    }
    void copyOnePercent() {
        uchar* bits = copied.bits();
        for (int y = onePercent.top(); y <= onePercent.bottom(); ++y)
            std::memcpy(bits + y * copied.bytesPerLine() + 4 * onePercent.left(),
                        flat.constScanLine(y) + 4 * onePercent.left(), 4 * std::size_t(onePercent.width()));
    }

    QImage flat;
    QImage copied;
    QRect onePercent;
    NoQuestions dialogs;
    QWidget window;
    WorkPicture work{dialogs};
    PictureView view{work, &window};
    Undo undo{work, view, dialogs};
};

void snapshot(int megapixels) {
    compare(named("undo snapshot and first write of 1 %", megapixels), [=](Comparison& ways) {
        const auto document = std::make_shared<Document>(squareOf(megapixels));
        ways.ours(timed([=] {
            document->work.TakeUndoSnapshot();
            document->write();
        }));
        ways.against("copying that 1 %", timed([=] { document->copyOnePercent(); }), 4);
        ways.against("a copy of the whole picture",
                     timed([=] { const QImage copy = document->flat.copy(); }));
    });
}

void undo(int megapixels) {
    compare(named("undo back, 1 % differs", megapixels), [=](Comparison& ways) {
        const auto document = std::make_shared<Document>(squareOf(megapixels));
        const auto change = [=] {
            document->work.TakeUndoSnapshot();
            document->write();
            document->work.picDisp.commit();
        };
        ways.ours(timed(change, [=] { document->undo.mnuEditUndo_Click(); }));
        ways.against("copying what differs", timed([=] { document->copyOnePercent(); }), 1.2);
    });
}

} // namespace

void undoing() {
    for (const int megapixels : GrowingMegapixels) {
        snapshot(megapixels);
        undo(megapixels);
    }
}

} // namespace ovrano::bench
