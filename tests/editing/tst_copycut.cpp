#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

using namespace ovrano;

namespace {

constexpr Colour Sand = rgb(200, 170, 90);

/// What the program put on the clipboard; empty when there is none.
Raster copied() {
    return ownClipboardPicture().value_or(Raster());
}

} // namespace

class TestCopyCut : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void nothingWithoutAPicture_data();
    void nothingWithoutAPicture();
    void copiesTheWholePicture();
    void copiesTheWholePictureWithABandDrawn();
    void copiesABlankPicture();
    void copiesTheLiftedZone();
    void copiesWhatHangsOverTheEdge();
    void copiesOnePixelMoreAfterADrag();
    void copyKeepsTheScratchPicturesBorder();
    void copyRunsOnAfterAnError();
    void copyOfAnEmptyPicture_data();
    void copyOfAnEmptyPicture();
    void cutNeedsBothFarEdges_data();
    void cutNeedsBothFarEdges();
    void cutCopiesAndFills();
    void cutForgetsTheSelection();
    void cutKeepsASnapshotWithoutFrame();
    void cutRightAfterAPaste();
    void cutOfARejectedBand_data();
    void cutOfARejectedBand();
    void cutAfterClearSelection();
    void cutOfAnEmptyPicture();
    void clearingTheClipboard();
};

void TestCopyCut::nothingWithoutAPicture_data() {
    QTest::addColumn<bool>("cut");
    QTest::newRow("copy") << false;
    QTest::newRow("cut") << true;
}

void TestCopyCut::nothingWithoutAPicture() {
    QFETCH(bool, cut);
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.work.ImageLoaded = desk.work.ImageModified = false;
    const Raster picture = desk.picture(), shown = desk.shown();
    desk.dialogs.answer(Answer::Ok);
    cut ? desk.copyCut.mnuEditCut_Click() : desk.copyCut.mnuEditCopy_Click();
    QCOMPARE(desk.message(), QString("Pas d'image chargée !"));
    QVERIFY(desk.isInputError());
    QVERIFY(copied().isEmpty());
    QVERIFY(desk.picture() == picture && desk.shown() == shown);
    QVERIFY(desk.block.HasSelection);
    QVERIFY(!desk.work.ImageModified);
}

void TestCopyCut::copiesTheWholePicture() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied() == before);
    QVERIFY(copied().sharesTile(before, 0, 0)); // however large it is
    QVERIFY(desk.picture() == before);
    QVERIFY(!desk.work.ImageModified);
    QVERIFY(!desk.work.UndoAvailable);
    QVERIFY(ClipboardOffer::now().includes(ClipboardFormat::Bitmap));
}

void TestCopyCut::copiesTheWholePictureWithABandDrawn() {
    ClipboardDesk desk;
    desk.block.startBand(QPoint(20, 20));
    desk.block.stretchBand(QPoint(80, 60));
    QVERIFY(desk.shown() != desk.picture());
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied() == desk.picture());
    QVERIFY(desk.shown() == desk.picture());
    QCOMPARE(desk.selection(), QRectF(QPointF(20, 20), QPointF(80, 60)));
}

void TestCopyCut::copiesABlankPicture() {
    ClipboardDesk desk(Raster(QSize(30, 20), White));
    desk.work.picDisp.setPicture(Raster());
    desk.work.picDisp.setBackColor(Sand);
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied() == Raster(QSize(30, 20), Sand));
}

void TestCopyCut::copiesTheLiftedZone() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.lift(QPoint(10, 12), QPoint(59, 41));
    const Raster framedPicture = desk.shown();
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied() == part(before, QRect(10, 12, 50, 30))); // without the dots of the frame
    QVERIFY(desk.shown() == framedPicture);
    QVERIFY(desk.picture() == before);
    QVERIFY(desk.block.HasSelection);
    QVERIFY(desk.work.picAuto.AutoSize());
}

void TestCopyCut::copiesWhatHangsOverTheEdge() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.drag(QPoint(30, 20), QPoint(5, 25)); // to −15, 15
    QCOMPARE(desk.block.SelX1, -15.F);
    desk.copyCut.mnuEditCopy_Click();
    const Raster picture = copied();
    QCOMPARE(picture.size(), QSize(51, 31));
    QVERIFY(part(picture, QRect(15, 0, 35, 30)) == part(before, QRect(25, 10, 35, 30)));
    QVERIFY(part(picture, QRect(0, 0, 15, 31)) == Raster(QSize(15, 31), White));
}

void TestCopyCut::copiesOnePixelMoreAfterADrag() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.drag(QPoint(30, 20), QPoint(130, 70));
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied() == part(desk.picture(), QRect(110, 60, 51, 31)));
}

void TestCopyCut::copyKeepsTheScratchPicturesBorder() {
    ClipboardDesk desk;
    desk.work.picAuto.setBorder(2);
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.copyCut.mnuEditCopy_Click();
    QCOMPARE(copied().size(), QSize(50, 30));
    QCOMPARE(desk.work.picAuto.Width(), 54);
}

void TestCopyCut::copyRunsOnAfterAnError() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    const Raster picture = desk.picture();
    desk.block.SelX2 = 1e12F; // no whole number of pixels
    desk.copyCut.mnuEditCopy_Click();
    QVERIFY(copied().isEmpty());
    QVERIFY(desk.work.picAuto.AutoSize());
    QVERIFY(desk.shown() != picture); // the frame is there again
    QVERIFY(desk.picture() == picture);
}

void TestCopyCut::copyOfAnEmptyPicture_data() {
    QTest::addColumn<bool>("lifted");
    QTest::newRow("whole") << false;
    QTest::newRow("with a block") << true;
}

void TestCopyCut::copyOfAnEmptyPicture() {
    QFETCH(bool, lifted);
    ClipboardDesk desk{Raster()};
    desk.block.HasSelection = lifted;
    QGuiApplication::clipboard()->setText("texte");
    desk.copyCut.mnuEditCopy_Click();
    QCOMPARE(desk.dialogs.messages.size(), 0);
    if (!lifted) // nothing to put there: what was there stays
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("texte"));
}

void TestCopyCut::cutNeedsBothFarEdges_data() {
    QTest::addColumn<QPointF>("edges");
    QTest::newRow("none") << QPointF(0, 0);
    QTest::newRow("right edge only") << QPointF(20, 0);
    QTest::newRow("bottom edge only") << QPointF(0, 20);
}

void TestCopyCut::cutNeedsBothFarEdges() {
    QFETCH(QPointF, edges);
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.block.HasSelection = true; // does not count
    desk.block.SelX2 = float(edges.x());
    desk.block.SelY2 = float(edges.y());
    desk.dialogs.answer(Answer::Ok);
    desk.copyCut.mnuEditCut_Click();
    QCOMPARE(desk.message(), QString("Pas de zone de sélection en cours !"));
    QVERIFY(desk.isInputError());
    QVERIFY(copied().isEmpty());
    QVERIFY(desk.picture() == before);
    QVERIFY(desk.block.HasSelection);
    QVERIFY(!desk.work.ImageModified);
}

void TestCopyCut::cutCopiesAndFills() {
    ClipboardDesk desk;
    desk.work.picDisp.setBackColor(Sand);
    const Raster before = desk.picture();
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.copyCut.mnuEditCut_Click();
    QVERIFY(copied() == part(before, QRect(10, 10, 50, 30)));
    // The right column and the bottom row stay.
    QVERIFY(desk.picture() == filledBox(before, QRect(QPoint(10, 10), QPoint(58, 38)), Sand));
    QVERIFY(desk.shown() == desk.picture());
    QVERIFY(desk.work.ImageModified);
}

void TestCopyCut::cutForgetsTheSelection() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    const QSignalSpy told(&desk.copyCut, &CopyCut::editStateChanged);
    desk.copyCut.mnuEditCut_Click();
    QVERIFY(!desk.block.HasSelection);
    QCOMPARE(desk.selection(), QRectF());
    QVERIFY(!desk.work.UndoAvailable); // the reset takes it back, on purpose
    QCOMPARE(told.size(), 1);
}

void TestCopyCut::cutKeepsASnapshotWithoutFrame() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.copyCut.mnuEditCut_Click();
    QVERIFY(desk.work.picUndo.Picture() == before);
}

void TestCopyCut::cutRightAfterAPaste() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    const Raster pasted(QSize(50, 40), rgb(9, 99, 199));
    offerPicture(pasted);
    desk.paste.mnuEditPaste_Click();
    desk.copyCut.mnuEditCut_Click();
    QVERIFY(copied() == pasted);
    const Raster composed = laidOver(before, pasted);
    QVERIFY(desk.picture() == filledBox(composed, QRect(0, 0, 49, 39), White));
    QVERIFY(!desk.block.BlockFromPaste);
}

void TestCopyCut::cutOfARejectedBand_data() {
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("filled");
    QTest::newRow("leftwards") << QPoint(80, 20) << QPoint(30, 60) << QRect(QPoint(29, 20), QPoint(80, 59));
    QTest::newRow("upwards") << QPoint(30, 60) << QPoint(80, 20) << QRect(QPoint(30, 19), QPoint(79, 60));
    QTest::newRow("one pixel thin") << QPoint(30, 20) << QPoint(31, 60)
                                    << QRect(QPoint(30, 20), QPoint(30, 59));
}

// No block is lifted, so the whole picture is copied, and the band's box is filled.
void TestCopyCut::cutOfARejectedBand() {
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    QFETCH(QRect, filled);
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.work.picDisp.setBackColor(Sand);
    desk.lift(from, to);
    QVERIFY(!desk.block.HasSelection);
    QVERIFY(desk.shown() != before); // the band stays drawn
    desk.copyCut.mnuEditCut_Click();
    QVERIFY(copied() == before);
    QVERIFY(desk.picture() == filledBox(before, filled, Sand));
    QVERIFY(desk.shown() == desk.picture());
}

void TestCopyCut::cutAfterClearSelection() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.block.ClearSelection();
    desk.dialogs.answer(Answer::Ok);
    desk.copyCut.mnuEditCut_Click();
    QCOMPARE(desk.message(), QString("Pas de zone de sélection en cours !"));
}

void TestCopyCut::cutOfAnEmptyPicture() {
    ClipboardDesk desk{Raster()};
    desk.select(0, 0, 20, 10);
    desk.copyCut.mnuEditCut_Click();
    QCOMPARE(desk.dialogs.messages.size(), 0);
    QVERIFY(desk.picture().isEmpty());
    QCOMPARE(desk.selection(), QRectF());
}

void TestCopyCut::clearingTheClipboard() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    const Raster picture = desk.picture(), shown = desk.shown();
    desk.copyCut.mnuEditCopy_Click();
    const QSignalSpy told(&desk.copyCut, &CopyCut::editStateChanged);
    desk.copyCut.mnuEditClearClipboard_Click();
    QVERIFY(!ClipboardOffer::now().includesPicture());
    QCOMPARE(told.size(), 1);
    QVERIFY(desk.picture() == picture && desk.shown() == shown); // and nothing else
    QVERIFY(desk.block.HasSelection);
}

OVRANO_TEST(TestCopyCut)
#include "tst_copycut.moc"
