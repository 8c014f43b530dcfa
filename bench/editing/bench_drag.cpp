#include "editing/block.h"
#include "editing/liftedblock.h"
#include "editing/topics.h"
#include "support/comparison.h"
#include "support/noquestions.h"
#include "support/pictures.h"

namespace ovrano::bench {

namespace {

/// A block that has been lifted and is about to be dragged.
struct Dragging {
    explicit Dragging(QSize size)
        : flat(photo(size))
        , wandering(size) {
        work.picDisp.setInnerSize(size);
        work.picDisp.setPicture(Raster::fromImage(flat));
        flat.detach(); // from the raster, which looks into its memory
        block.keepBackground();
        work.picRegion.setInnerSize(BlockSize);
        work.picRegion.setPicture(Raster::fromImage(blockImage));
        block.cutMask();
        block.SetLeeWay(work.picRegion, work.picDisp, LiftedBlock::LeeWayPercent);
        block.SetPrevAndCurrValues(0, 0);
        block.HasSelection = block.TransparentPaste = true;
        block.SelX2 = float(BlockSize.width() - 1);
        block.SelY2 = float(BlockSize.height() - 1);
        block.grab(QPoint(0, 0));
    }

    QImage flat;
    QImage blockImage = blockPicture();
    Wandering wandering;
    NoQuestions dialogs;
    WorkPicture work{dialogs};
    LiftedBlock block{work};
};

void step(int megapixels) {
    compare(named("a drag step with restore and commit", megapixels), [=](Comparison& ways) {
        const auto dragging = std::make_shared<Dragging>(squareOf(megapixels));
        ways.ours(timed([=] { dragging->block.dragTo(dragging->wandering.next()); }));
        ways.against(
            "copying the block's rows",
            timed([=] { copyRows(dragging->flat, dragging->blockImage, dragging->wandering.next()); }), 5);
    });
}

/// From pixel to pixel, as a hand does it.
void smallStep() {
    compare("a drag step by one pixel, 12 MP", [](Comparison& ways) {
        const auto dragging = std::make_shared<Dragging>(TwelveMegapixels);
        const auto at = std::make_shared<int>(0);
        ways.ours(timed([=] {
            dragging->block.dragTo(QPoint(*at % 500, *at % 300));
            ++*at;
        }));
        ways.against(
            "copying the block's rows",
            timed([=] { copyRows(dragging->flat, dragging->blockImage, QPoint(*at % 500, *at % 300)); }), 5);
    });
}

} // namespace

void dragSteps() {
    for (const int megapixels : GrowingMegapixels)
        step(megapixels);
    smallStep();
}

} // namespace ovrano::bench
