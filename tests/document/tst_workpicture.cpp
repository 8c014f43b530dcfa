#include "document/pictureview.h"
#include "document/undo.h"
#include "document/workpicture.h"
#include "platform/runtimeerror.h"
#include "support/answeringdialogs.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QWheelEvent>
#include <QtTest>

using namespace ovrano;

namespace {

void show(Surface& surface, const QStringList& rows) {
    surface.setPicture(Raster());
    surface.setInnerSize(grid(rows).size());
    surface.setPicture(grid(rows));
}

/// A document in a viewport of a given size.
struct Window {
    explicit Window(QSize viewport)
        : work(dialogs)
        , view(work, &frame)
        , undo(work, view, dialogs) {
        view.picZ->resize(viewport);
    }

    void showPicture(QSize size) {
        work.picDisp.setInnerSize(size);
        view.setScrollMax();
    }

    AnsweringDialogs dialogs;
    QWidget frame;
    WorkPicture work;
    PictureView view;
    Undo undo;
};

} // namespace

class TestWorkPicture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsBlank();
    void wholePictureCopyIsPersistent();
    void wholePictureCopyTakesWhatIsDrawn();
    void copyIntoALargerSurfaceShowsItsBackground();
    void copyOfAnEmptyPicture();
    void failedCopyIsReported();
    void overflowOnOneAxisLeavesTheOtherItsRange();
    void sizeLabel();
    void clientSizeKeepsTheBorder();
    void snapshotFollowsThePicturesSize();
    void undoPutsBackOnce();
    void undoTakesTheOldSizeButKeepsTheRanges();
    void scrollRanges_data();
    void scrollRanges();
    void overflowBeyond16BitsIsAnError();
    void nothingOverflowsKeepsTheSteps();
    void scrollingMovesThePicture();
    void scrollsTowardsAPoint();
    void wheelScrolls();
};

void TestWorkPicture::startsBlank() {
    Window window(QSize(800, 600));
    QCOMPARE(window.work.picDisp.Image(), Raster(QSize(640, 480), White));
    QVERIFY(!window.work.ImageLoaded && !window.work.ImageModified && !window.work.UndoAvailable);
    for (const Surface* surface :
         {&window.work.picDisp, &window.work.picUndo, &window.work.picSnap, &window.work.picAuto,
          &window.work.picTemp, &window.work.picRegion, &window.work.picMask})
        QCOMPARE(surface->BackColor(), White);
}

void TestWorkPicture::wholePictureCopyIsPersistent() {
    Window window(QSize(800, 600));
    show(window.work.picDisp, {"rg", "by"});
    window.work.picSnap.setInnerSize(QSize(2, 2));
    QVERIFY(window.work.BitbltPic(window.work.picDisp, window.work.picSnap));
    window.work.picSnap.Cls();
    QCOMPARE(rowsOf(window.work.picSnap.Picture()), QStringList({"rg", "by"}));
    QCOMPARE(rowsOf(window.work.picSnap.Image()), QStringList({"rg", "by"}));
}

void TestWorkPicture::wholePictureCopyTakesWhatIsDrawn() {
    Window window(QSize(800, 600));
    show(window.work.picDisp, {"rg"});
    window.work.picDisp.Line(QPointF(1, 0), QPointF(1, 0), Black, BoxStyle::Filled);
    window.work.picSnap.setInnerSize(QSize(2, 1));
    window.work.BitbltPic(window.work.picDisp, window.work.picSnap);
    QCOMPARE(rowsOf(window.work.picSnap.Picture()), QStringList({"r#"}));
    QCOMPARE(rowsOf(window.work.picDisp.Picture()), QStringList({"rg"}));
}

void TestWorkPicture::copyIntoALargerSurfaceShowsItsBackground() {
    Window window(QSize(800, 600));
    show(window.work.picDisp, {"r"});
    show(window.work.picSnap, {"ggg", "ggg"});
    window.work.picSnap.setBackColor(Black);
    window.work.BitbltPic(window.work.picDisp, window.work.picSnap);
    QCOMPARE(rowsOf(window.work.picSnap.Picture()), QStringList({"r##", "###"}));
    show(window.work.picTemp, {"gb", "gb"});
    window.work.picSnap.setInnerSize(QSize(1, 1));
    window.work.BitbltPic(window.work.picTemp, window.work.picSnap);
    QCOMPARE(rowsOf(window.work.picSnap.Picture()), QStringList({"g"}));
}

void TestWorkPicture::copyOfAnEmptyPicture() {
    Window window(QSize(800, 600));
    window.work.picDisp.setInnerSize(QSize(0, 0));
    QVERIFY(window.work.BitbltPic(window.work.picDisp, window.work.picSnap));
    window.work.TakeUndoSnapshot();
    window.undo.mnuEditUndo_Click();
    QVERIFY(window.work.picDisp.Image().isEmpty());
}

namespace {

/// A document whose whole-picture copies run out of memory.
class WithoutMemory : public WorkPicture {
public:
    using WorkPicture::WorkPicture;

protected:
    void copyWhole(const Surface&, Surface&) override { throw RuntimeError(error::OutOfMemory); }
};

} // namespace

void TestWorkPicture::failedCopyIsReported() {
    AnsweringDialogs dialogs;
    WithoutMemory work(dialogs);
    dialogs.answer(Answer::Ok);
    QVERIFY(!work.BitbltPic(work.picDisp, work.picSnap));
    QCOMPARE(dialogs.messages.first().text,
             QStringLiteral("BitbltPic\r\n7     ") + RuntimeError::descriptionOf(7));
    dialogs.answer(Answer::Ok);
    work.TakeUndoSnapshot();
    QVERIFY(work.UndoAvailable); // the flag is set all the same
}

void TestWorkPicture::overflowOnOneAxisLeavesTheOtherItsRange() {
    Window window(QSize(100, 100));
    window.work.picDisp.setInnerSize(QSize(60000, 300));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, window.view.setScrollMax());
    QCOMPARE(window.view.VScroll1->maximum(), 200);
    window.work.picDisp.setInnerSize(QSize(10, 10));
}

void TestWorkPicture::sizeLabel() {
    Window window(QSize(800, 600));
    QSignalSpy shown(&window.work, &WorkPicture::imageSizeShown);
    window.work.picDisp.setInnerSize(QSize(12000, 7));
    window.work.readImageSize();
    window.work.showImageSize();
    QCOMPARE(shown.first().first().toString(), QStringLiteral("L=12000  H=7"));
}

void TestWorkPicture::clientSizeKeepsTheBorder() {
    Surface surface(QStringLiteral("picRegion"), QSize(1, 1));
    surface.setBorder(3);
    setClientSize(surface, 40, 50);
    QCOMPARE(surface.innerSize(), QSize(40, 50));
    QCOMPARE(surface.Width(), 46);
}

void TestWorkPicture::snapshotFollowsThePicturesSize() {
    Window window(QSize(800, 600));
    show(window.work.picDisp, {"rg", "by"});
    window.work.TakeUndoSnapshot();
    QVERIFY(window.work.UndoAvailable);
    QCOMPARE(rowsOf(window.work.picUndo.Picture()), QStringList({"rg", "by"}));
    show(window.work.picDisp, {"ggg"});
    window.work.TakeUndoSnapshot();
    QCOMPARE(rowsOf(window.work.picUndo.Picture()), QStringList({"ggg"}));
    QVERIFY(window.work.picUndo.Picture().sharesTile(window.work.picDisp.Picture(), 0, 0));
}

void TestWorkPicture::undoPutsBackOnce() {
    Window window(QSize(800, 600));
    QSignalSpy released(&window.undo, &Undo::pickerReleased);
    show(window.work.picDisp, {"rg", "by"});
    window.work.ImageModified = true;
    window.work.TakeUndoSnapshot();
    window.work.picDisp.Line(QPointF(0, 0), QPointF(1, 1), Black, BoxStyle::Filled);
    window.work.picDisp.commit();
    window.undo.mnuEditUndo_Click();
    QCOMPARE(rowsOf(window.work.picDisp.Picture()), QStringList({"rg", "by"}));
    QVERIFY(!window.work.UndoAvailable);
    QVERIFY(window.work.ImageModified);
    QCOMPARE(released.size(), 1);
}

void TestWorkPicture::undoTakesTheOldSizeButKeepsTheRanges() {
    Window window(QSize(100, 100));
    window.showPicture(QSize(150, 130));
    window.work.TakeUndoSnapshot();
    window.showPicture(QSize(400, 300));
    window.view.HScroll1->setValue(200);
    window.view.VScroll1->setValue(20);
    QSignalSpy labels(&window.work, &WorkPicture::imageSizeShown);
    window.undo.mnuEditUndo_Click();
    QCOMPARE(window.work.picDisp.innerSize(), QSize(150, 130));
    QCOMPARE(window.view.HScroll1->value(), 0);
    QCOMPARE(window.view.VScroll1->value(), 0);
    QCOMPARE(window.view.HScroll1->maximum(), 300);
    QCOMPARE(window.view.VScroll1->maximum(), 200);
    QCOMPARE(labels.size(), 0);
}

void TestWorkPicture::scrollRanges_data() {
    QTest::addColumn<int>("picture");
    QTest::addColumn<int>("viewport");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("small");
    QTest::addColumn<int>("large");
    QTest::newRow("1000 in 800") << 1000 << 800 << 200 << 4 << 10;
    QTest::newRow("700 in 600") << 700 << 600 << 100 << 6 << 6;
    QTest::newRow("overflow of 39") << 839 << 800 << 39 << 21 << 21;
    QTest::newRow("overflow of 40") << 840 << 800 << 40 << 20 << 20;
    QTest::newRow("overflow of 40, small viewport") << 50 << 10 << 40 << 1 << 2;
    QTest::newRow("overflow of 39, small viewport") << 49 << 10 << 39 << 1 << 1;
    QTest::newRow("ratio of 2.5 is 2") << 140 << 100 << 40 << 2 << 2;
    QTest::newRow("ratio of 1.5 is 2") << 50 << 30 << 20 << 2 << 2;
    QTest::newRow("page of 2.5 is 2") << 60 << 10 << 50 << 1 << 2;
    QTest::newRow("page of 3.5 is 4") << 80 << 10 << 70 << 1 << 4;
    QTest::newRow("one pixel") << 801 << 800 << 1 << 800 << 800;
    QTest::newRow("huge") << 33567 << 800 << 32767 << 1 << 1638;
}

void TestWorkPicture::scrollRanges() {
    QFETCH(int, picture);
    QFETCH(int, viewport);
    const ScrollRange range = scrollRange(picture, viewport, ScrollRange());
    QTEST(int(range.Max), "max");
    QTEST(range.SmallChange, "small");
    QTEST(range.LargeChange, "large");

    Window window(QSize(viewport, viewport));
    window.showPicture(QSize(picture, picture));
    for (const QScrollBar* bar : {window.view.HScroll1, window.view.VScroll1}) {
        QTEST(bar->maximum(), "max");
        QTEST(bar->singleStep(), "small");
        QTEST(bar->pageStep(), "large");
    }
}

void TestWorkPicture::overflowBeyond16BitsIsAnError() {
    try {
        scrollRange(33568, 800, ScrollRange());
        QFAIL("no overflow");
    } catch (const RuntimeError& caught) {
        QCOMPARE(caught.number(), 6);
    }
}

void TestWorkPicture::nothingOverflowsKeepsTheSteps() {
    for (const int picture : {1, 799, 800}) {
        const ScrollRange range = scrollRange(picture, 800, ScrollRange{200, 4, 10});
        QCOMPARE(int(range.Max), 0);
        QCOMPARE(range.SmallChange, 4);
        QCOMPARE(range.LargeChange, 10);
    }
    Window window(QSize(800, 600));
    window.showPicture(QSize(1000, 700));
    window.showPicture(QSize(800, 10));
    QCOMPARE(window.view.HScroll1->maximum(), 0);
    QCOMPARE(window.view.VScroll1->maximum(), 0);
    QCOMPARE(window.view.HScroll1->pageStep(), 10);
}

void TestWorkPicture::scrollingMovesThePicture() {
    Window window(QSize(100, 100));
    window.showPicture(QSize(300, 400));
    window.view.HScroll1->setValue(37);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-37, 0));
    window.view.VScroll1->setValue(300);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-37, -300));
    window.view.HScroll1->setSliderDown(true);
    window.view.HScroll1->setSliderPosition(50);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-50, -300));
    window.view.scrollHome();
    QCOMPARE(window.view.picDisp->pos(), QPoint(0, 0));
    QVERIFY(window.view.picSnap->isHidden());
    QCOMPARE(window.view.picSnap->pos(), QPoint(0, 0));
}

void TestWorkPicture::scrollsTowardsAPoint() {
    Window window(QSize(100, 100));
    window.showPicture(QSize(300, 250));
    QVERIFY(!window.view.scrollTowards(QPoint(100, 100)));
    QVERIFY(window.view.scrollTowards(QPoint(130, 50)));
    QCOMPARE(window.view.picDisp->pos(), QPoint(-30, 0));
    QVERIFY(window.view.scrollTowards(QPoint(20, 500)));
    QCOMPARE(window.view.picDisp->pos(), QPoint(-20, -150));
    QVERIFY(!window.view.scrollTowards(QPoint(20, 600)));
    QVERIFY(window.view.scrollTowards(QPoint(-5, -5)));
    QCOMPARE(window.view.picDisp->pos(), QPoint(0, 0));
}

void TestWorkPicture::wheelScrolls() {
    Window window(QSize(100, 100));
    window.showPicture(QSize(1000, 1000));
    const auto wheel = [&](QPoint angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window.view.picZ, &event);
    };
    wheel(QPoint(0, -120), Qt::NoModifier);
    QCOMPARE(window.view.picDisp->pos(), QPoint(0, -48));
    wheel(QPoint(0, -120), Qt::ShiftModifier);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-48, -48));
    wheel(QPoint(0, 240), Qt::NoModifier);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-48, 0));
    wheel(QPoint(-120, 0), Qt::NoModifier);
    QCOMPARE(window.view.picDisp->pos(), QPoint(-96, 0));
}

OVRANO_TEST(TestWorkPicture)
#include "tst_workpicture.moc"
