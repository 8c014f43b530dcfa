#include "support/testprogram.h"
#include "wizards/rotfontsbench.h"
#include "wizards/screenofsize.h"
#include "wizards/txt3dbench.h"

#include <QScreen>

using namespace ovrano;

namespace {

/// The middle of everything that is drawn on a surface, in pixels.
QPointF middleOfInk(const Surface& surface) {
    return QRectF(inkBox(surface.Image(), surface.BackColor())).center();
}

} // namespace

/// First sizes and places on a screen that is large enough, whatever the desktop's font.
class DialogSizesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoColourPictureKeepsItsFirstSize_data() { fonts(); }
    void twoColourPictureKeepsItsFirstSize();
    void circularPictureKeepsItsFirstSize_data() { fonts(); }
    void circularPictureKeepsItsFirstSize();
    void circleStandsInTheMiddleAtFirst_data() { fonts(); }
    void circleStandsInTheMiddleAtFirst();
    void chosenCentreIsKept();
    void pictureGrowsByWhatTheWindowGrows_data() { fonts(); }
    void pictureGrowsByWhatTheWindowGrows();
    void pictureStandsInTheMiddleOfItsRoom();
    void cornerIsTakenOnce();

private:
    static void fonts() {
        QTest::addColumn<int>("points");
        for (const int points : {7, 9, 13, 20})
            QTest::addRow("%d points", points) << points;
    }
};

void DialogSizesTest::twoColourPictureKeepsItsFirstSize() {
    QFETCH(const int, points);
    const DesktopFont font(points);
    const Txt3DBench bench;
    bench.show();
    QCOMPARE(bench.dialog->ExamplePic.innerSize(), QSize(560, 220));
    QCOMPARE(bench.dialog->Frame6->picture->size(), QSize(560, 220));
    QCOMPARE(bench.dialog->lblPictureSize->text(), QStringLiteral("Nouvelle image : 560 × 220 pixels"));
    QCOMPARE(bench.shown(), bench.expected({}));
}

void DialogSizesTest::circularPictureKeepsItsFirstSize() {
    QFETCH(const int, points);
    const DesktopFont font(points);
    RotFontsBench bench;
    bench.open();
    QCOMPARE(bench.preview().innerSize(), QSize(420, 420));
    QCOMPARE(bench.dialog.Frame6->picture->size(), QSize(420, 420));
    bench.dialog.Command3->click();
    QCOMPARE(bench.work.picDisp.innerSize(), QSize(420, 420));
}

void DialogSizesTest::circleStandsInTheMiddleAtFirst() {
    QFETCH(const int, points);
    const DesktopFont font(points);
    RotFontsBench bench;
    bench.dialog.Text1->setText(QString(60, u'M'));
    bench.open();
    QCOMPARE(bench.dialog.TxtCX->text(), QStringLiteral("210"));
    QCOMPARE(bench.dialog.TxtCY->text(), QStringLiteral("210"));
    const QPointF away = middleOfInk(bench.preview()) - QPointF(210, 210);
    QVERIFY2(std::abs(away.x()) < 6 && std::abs(away.y()) < 6, qPrintable(QString::number(away.x())));
}

void DialogSizesTest::chosenCentreIsKept() {
    RotFontsBench bench;
    bench.dialog.TxtCX->setText(QStringLiteral("17"));
    bench.open();
    QCOMPARE(bench.dialog.TxtCX->text(), QStringLiteral("17"));
    QCOMPARE(bench.dialog.TxtCY->text(), QStringLiteral("210"));
}

void DialogSizesTest::pictureGrowsByWhatTheWindowGrows() {
    QFETCH(const int, points);
    const DesktopFont font(points);
    RotFontsBench round;
    round.open();
    round.enlarge(QSize(33, 21));
    QCOMPARE(round.preview().innerSize(), QSize(453, 441));
    round.enlarge(QSize(-33, -21));
    QCOMPARE(round.preview().innerSize(), QSize(420, 420));

    const Txt3DBench bench;
    bench.show();
    bench.dialog->resize(bench.dialog->size() + QSize(33, 21));
    QTRY_COMPARE(bench.dialog->ExamplePic.innerSize(), QSize(593, 241));
}

void DialogSizesTest::pictureStandsInTheMiddleOfItsRoom() {
    const DesktopFont font(20);
    const Txt3DBench bench;
    bench.show();
    const QRect room = bench.dialog->Frame6->rect();
    const QRect picture = bench.dialog->Frame6->picture->geometry();
    QVERIFY(room.width() > picture.width() + 50); // otherwise there is nothing to tell
    QVERIFY(std::abs(room.center().x() - picture.center().x()) <= 1);
    // The frame is drawn around the picture, not around its room.
    QCOMPARE(bench.dialog->Frame6->frameRect().size() - picture.size(),
             2 * QSize(bench.dialog->Frame6->frameWidth(), bench.dialog->Frame6->frameWidth()));
}

void DialogSizesTest::cornerIsTakenOnce() {
    const Txt3DBench bench;
    bench.show();
    const QRect outer = bench.dialog->frameGeometry();
    QCOMPARE(outer.bottomRight(), bench.dialog->screen()->availableGeometry().bottomRight());
    bench.dialog->move(40, 50);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    bench.show();
    QCOMPARE(bench.dialog->pos(), QPoint(40, 50)); // where the user has put it
}

OVRANO_TEST_RUN((runOnScreen<DialogSizesTest, 1920, 1080>))
#include "tst_dialogsizes.moc"
