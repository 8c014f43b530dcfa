#include "document/pictureview.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QTest>

using namespace ovrano;

namespace {

/// A picture in a larger viewport. What the toolkit gives to the viewport is sent there.
struct EdgeBench {
    explicit EdgeBench(QSize size) {
        work.picDisp.setInnerSize(size);
        view.picZ->resize(300, 200);
        window.resize(320, 220);
        window.show();
        view.picDisp->setPointer(MousePointer::SizeWE);
    }

    /// At a point of the viewport, which the toolkit tells rounded.
    void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at.toPoint(), view.picZ->mapTo(&window, at), view.picZ->mapToGlobal(at),
                          button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(view.picZ, &event);
    }
    Qt::CursorShape shape() const { return view.picZ->cursor().shape(); }

    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    QWidget window;
    PictureView view{work, &window};
    QSignalSpy downs{view.picDisp, &PictureBox::mouseDown};
    QSignalSpy moves{view.picDisp, &PictureBox::mouseMove};
    QSignalSpy ups{view.picDisp, &PictureBox::mouseUp};
};

/// What a signal of the left button holds that came once.
QList<QVariantList> announced(QPoint at) {
    return {{QVariant::fromValue(Qt::LeftButton), at}};
}

} // namespace

/// The mouse on pixels of the picture that the toolkit takes for the viewport's.
class TestEdgePixelMouse : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void gestureBelongsToThePicture();
    void hoveringShowsThePicturesPointer();
    void besideThePictureNothingIsPassed_data();
    void besideThePictureNothingIsPassed();
    void gestureFromOutsideStaysOutside();
    void outerHalfOfTheLastPixelIsThePictures();
    void lostReleaseEndsIt();
    void pressAfterALostReleaseIsANewOne();
};

void TestEdgePixelMouse::gestureBelongsToThePicture() {
    EdgeBench bench(QSize(1, 100));
    bench.mouse(QEvent::MouseButtonPress, QPoint(0, 50), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs, announced(QPoint(0, 50)));
    QVERIFY(bench.window.focusWidget() == bench.view.picDisp);
    bench.mouse(QEvent::MouseMove, QPoint(120, 60), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(bench.moves, QList<QVariantList>({{QPoint(120, 60)}}));
    bench.mouse(QEvent::MouseButtonRelease, QPoint(130, 70), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.ups, announced(QPoint(130, 70)));
    bench.mouse(QEvent::MouseMove, QPoint(140, 70), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.moves.count(), 1);
}

void TestEdgePixelMouse::hoveringShowsThePicturesPointer() {
    EdgeBench bench(QSize(80, 1));
    QVERIFY(bench.view.picZ->hasMouseTracking());
    bench.mouse(QEvent::MouseMove, QPoint(79, 0), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.moves, QList<QVariantList>({{QPoint(79, 0)}}));
    QCOMPARE(bench.shape(), Qt::SizeHorCursor);
    bench.mouse(QEvent::MouseMove, QPoint(79, 1), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.moves.count(), 1);
    QCOMPARE(bench.shape(), Qt::ArrowCursor);
}

void TestEdgePixelMouse::besideThePictureNothingIsPassed_data() {
    QTest::addColumn<QPoint>("at");
    QTest::newRow("right") << QPoint(40, 20);
    QTest::newRow("below") << QPoint(20, 40);
    QTest::newRow("both") << QPoint(200, 150);
}

void TestEdgePixelMouse::besideThePictureNothingIsPassed() {
    QFETCH(QPoint, at);
    EdgeBench bench(QSize(40, 40));
    bench.mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.downs.count() + bench.ups.count() + bench.moves.count(), 0);
}

void TestEdgePixelMouse::gestureFromOutsideStaysOutside() {
    EdgeBench bench(QSize(1, 100));
    bench.mouse(QEvent::MouseButtonPress, QPoint(30, 50), Qt::LeftButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseMove, QPoint(0, 50), Qt::NoButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseButtonRelease, QPoint(0, 50), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.downs.count() + bench.ups.count() + bench.moves.count(), 0);
}

void TestEdgePixelMouse::outerHalfOfTheLastPixelIsThePictures() {
    EdgeBench bench(QSize(80, 60));
    bench.mouse(QEvent::MouseButtonPress, QPointF(79.75, 59.5), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs, announced(QPoint(79, 59)));
    bench.mouse(QEvent::MouseButtonRelease, QPointF(80.25, 59.5), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.ups, announced(QPoint(80, 59)));
    bench.mouse(QEvent::MouseButtonPress, QPointF(80.25, 59.5), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs.count(), 1);
}

void TestEdgePixelMouse::pressAfterALostReleaseIsANewOne() {
    EdgeBench bench(QSize(1, 100));
    bench.mouse(QEvent::MouseButtonPress, QPoint(0, 50), Qt::LeftButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseButtonPress, QPoint(90, 50), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs.count(), 1);
    bench.mouse(QEvent::MouseButtonPress, QPoint(0, 50), Qt::LeftButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseButtonPress, QPoint(90, 50), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    QCOMPARE(bench.downs.count(), 3); // the gesture goes on
}

void TestEdgePixelMouse::lostReleaseEndsIt() {
    EdgeBench bench(QSize(1, 100));
    bench.mouse(QEvent::MouseButtonPress, QPoint(0, 50), Qt::LeftButton, Qt::LeftButton);
    bench.mouse(QEvent::MouseMove, QPoint(90, 50), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.ups.count(), 1); // the picture learns that nothing is held
    bench.mouse(QEvent::MouseButtonRelease, QPoint(90, 50), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.ups.count(), 1);
}

OVRANO_TEST(TestEdgePixelMouse)
#include "tst_edgepixelmouse.moc"
