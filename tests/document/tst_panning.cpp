#include "document/pictureview.h"
#include "support/answeringdialogs.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QtTest>

using namespace ovrano;

namespace {

/// A picture of 1000 × 800 pixels behind a viewport of 300 × 200, scrolled to (200, 100).
struct PanningBench {
    PanningBench() {
        work.picDisp.setInnerSize(QSize(1000, 800));
        view.picZ->resize(300, 200);
        window.resize(320, 220);
        window.show();
        view.setScrollMax();
        view.HScroll1->setValue(200);
        view.VScroll1->setValue(100);
    }

    /// Sends what the mouse does at a point of the screen.
    void mouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons,
               QWidget* target = nullptr) {
        QWidget* to = target ? target : view.picDisp;
        QMouseEvent event(type, to->mapFromGlobal(at), at, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(to, &event);
    }
    QPoint scrolled() const { return {view.HScroll1->value(), view.VScroll1->value()}; }

    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    QWidget window;
    PictureView view{work, &window};
    QSignalSpy downs{view.picDisp, &PictureBox::mouseDown};
    QSignalSpy ups{view.picDisp, &PictureBox::mouseUp};
};

} // namespace

class TestPanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictureFollowsTheHand();
    void stopsAtTheEdge();
    void startsBesideThePictureAsWell();
    void leftGestureGoesOn();
    void lostReleaseEndsIt();
    void pointerComesBack();
};

void TestPanning::pictureFollowsTheHand() {
    PanningBench bench;
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::MiddleButton, Qt::MiddleButton);
    bench.mouse(QEvent::MouseMove, QPoint(120, 110), Qt::NoButton, Qt::MiddleButton);
    QCOMPARE(bench.scrolled(), QPoint(230, 90));
    bench.mouse(QEvent::MouseMove, QPoint(100, 100), Qt::NoButton, Qt::MiddleButton);
    QCOMPARE(bench.scrolled(), QPoint(250, 100));
    bench.mouse(QEvent::MouseButtonRelease, QPoint(100, 100), Qt::MiddleButton, Qt::NoButton);
    bench.mouse(QEvent::MouseMove, QPoint(10, 10), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.scrolled(), QPoint(250, 100));
    QCOMPARE(bench.downs.count(), 0); // the tools never saw it
    QCOMPARE(bench.ups.count(), 0);
}

void TestPanning::stopsAtTheEdge() {
    PanningBench bench;
    bench.mouse(QEvent::MouseButtonPress, QPoint(10, 10), Qt::MiddleButton, Qt::MiddleButton);
    bench.mouse(QEvent::MouseMove, QPoint(900, 900), Qt::NoButton, Qt::MiddleButton);
    QCOMPARE(bench.scrolled(), QPoint(0, 0));
}

void TestPanning::startsBesideThePictureAsWell() {
    PanningBench bench;
    bench.work.picDisp.setInnerSize(QSize(100, 800));
    bench.view.setScrollMax();
    bench.mouse(QEvent::MouseButtonPress, QPoint(200, 100), Qt::MiddleButton, Qt::MiddleButton,
                bench.view.picZ);
    bench.mouse(QEvent::MouseMove, QPoint(200, 60), Qt::NoButton, Qt::MiddleButton, bench.view.picZ);
    QCOMPARE(bench.scrolled(), QPoint(0, 140));
}

void TestPanning::leftGestureGoesOn() {
    PanningBench bench;
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs.count(), 1);
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::MiddleButton,
                Qt::LeftButton | Qt::MiddleButton);
    bench.mouse(QEvent::MouseMove, QPoint(120, 110), Qt::NoButton, Qt::LeftButton | Qt::MiddleButton);
    QCOMPARE(bench.scrolled(), QPoint(200, 100));
    bench.mouse(QEvent::MouseButtonRelease, QPoint(120, 110), Qt::MiddleButton, Qt::LeftButton);
    QCOMPARE(bench.ups.count(), 0); // the release of the middle button ends nothing
    bench.mouse(QEvent::MouseButtonRelease, QPoint(120, 110), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(bench.ups.count(), 1);
}

void TestPanning::lostReleaseEndsIt() {
    PanningBench bench;
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::MiddleButton, Qt::MiddleButton);
    bench.mouse(QEvent::MouseMove, QPoint(120, 110), Qt::NoButton, Qt::NoButton);
    QCOMPARE(bench.scrolled(), QPoint(200, 100));
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(bench.downs.count(), 1);
}

void TestPanning::pointerComesBack() {
    PanningBench bench;
    bench.view.picDisp->setPointer(MousePointer::Cross);
    bench.mouse(QEvent::MouseButtonPress, QPoint(150, 100), Qt::MiddleButton, Qt::MiddleButton);
    QCOMPARE(bench.view.picDisp->cursor().shape(), Qt::ClosedHandCursor);
    bench.mouse(QEvent::MouseButtonRelease, QPoint(150, 100), Qt::MiddleButton, Qt::NoButton);
    QCOMPARE(bench.view.picDisp->cursor().shape(), Qt::CrossCursor);
}

OVRANO_TEST(TestPanning)
#include "tst_panning.moc"
