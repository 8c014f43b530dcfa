#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

using namespace ovrano;

namespace {

constexpr Colour Sea = rgb(20, 70, 190);

Raster sea(QSize size) {
    return Raster(size, Sea);
}

} // namespace

/// "Coller": what the clipboard holds becomes a lifted block.
class TestPaste : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void nothingToPaste_data();
    void nothingToPaste();
    void blockComesToTheCorner();
    void blockCanBeDragged();
    void companions();
    void flags();
    void viewGoesHome();
    void pointerMeanwhile();
    void snapshotAndUndo();
    void pastesWithoutAPicture();
    void pastesTheProgramsOwnCopy();
    void pastesOverALiftedBlock();
    void pastesOverADrawnBand();
    void largeBlockIsNotOffered_data();
    void largeBlockIsNotOffered();
    void onePixel();
    void unreadablePicture_data();
    void unreadablePicture();
    void tooLargePicture();
    void editMenuIsTold_data();
    void editMenuIsTold();
};

void TestPaste::nothingToPaste_data() {
    QTest::addColumn<bool>("text");
    QTest::addColumn<bool>("transparent");
    QTest::newRow("empty") << false << false;
    QTest::newRow("text only") << true << false;
    QTest::newRow("text only, transparent") << true << true;
}

void TestPaste::nothingToPaste() {
    QFETCH(bool, text);
    QFETCH(bool, transparent);
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    const bool undoable = desk.work.UndoAvailable;
    desk.work.ImageModified = false;
    desk.view.HScroll1->setValue(33);
    const Raster picture = desk.picture(), shown = desk.shown(), kept = desk.work.picUndo.Picture();
    if (text)
        QGuiApplication::clipboard()->setText("texte");
    desk.dialogs.answer(Answer::Ok);
    transparent ? desk.paste.mnuEditPasteTransparent_Click() : desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.message(), QString("Pas d'image dans le presse papier !"));
    QVERIFY(desk.isInputError());
    QVERIFY(desk.picture() == picture && desk.shown() == shown && desk.work.picUndo.Picture() == kept);
    QVERIFY(desk.block.HasSelection && !desk.block.TransparentPaste && !desk.block.BlockFromPaste);
    QCOMPARE(desk.selection(), QRectF(QPointF(10, 10), QPointF(59, 39)));
    QCOMPARE(desk.work.UndoAvailable, undoable);
    QVERIFY(!desk.work.ImageModified);
    QCOMPARE(desk.view.HScroll1->value(), 33);
}

void TestPaste::blockComesToTheCorner() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    const Raster pasted = colourful(QSize(50, 40));
    offerPicture(pasted);
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.picture() == laidOver(before, pasted));
    QVERIFY(desk.shown() == framed(desk.picture(), QRect(0, 0, 50, 40)));
    QCOMPARE(desk.selection(), QRectF(QPointF(0, 0), QPointF(49, 39)));
    QCOMPARE(desk.dialogs.messages.size(), 0);
}

void TestPaste::blockCanBeDragged() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offerPicture(sea(QSize(50, 50)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.imgRegion.isOn());
    QCOMPARE(QPointF(double(desk.block.MinLeft), double(desk.block.MaxLeft)), QPointF(-40, 390));
    QCOMPARE(QPointF(double(desk.block.MinTop), double(desk.block.MaxTop)), QPointF(-40, 290));
    desk.drag(QPoint(5, 5), QPoint(2000, 5));
    QCOMPARE(desk.block.SelX1, 390.F);
    desk.drag(QPoint(395, 5), QPoint(-2000, 5));
    QCOMPARE(desk.block.SelX1, -40.F);
    desk.drag(QPoint(5, 5), QPoint(145, 105));
    QVERIFY(desk.picture() == laidOver(before, sea(QSize(50, 50)), QPoint(100, 100)));
}

void TestPaste::companions() {
    ClipboardDesk desk;
    desk.work.picRegion.setBorder(1);
    desk.work.picSnap.setInnerSize(QSize(7, 7)); // as an Undo may leave it
    const Raster before = desk.picture();
    const Raster pasted = colourful(QSize(50, 40));
    offerPicture(pasted);
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.work.picAuto.Picture() == pasted);
    QCOMPARE(desk.work.picAuto.innerSize(), QSize(50, 40));
    QVERIFY(desk.work.picRegion.Picture() == pasted);
    QVERIFY(desk.work.picSnap.Picture() == before);
    QCOMPARE(desk.work.picSnap.innerSize(), QSize(400, 300));
}

void TestPaste::flags() {
    ClipboardDesk desk;
    desk.block.TransparentPaste = true;
    desk.block.GrabDX = desk.block.GrabDY = desk.block.CurrX = desk.block.PrevY = 9;
    offerPicture(sea(QSize(50, 40)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.block.HasSelection && desk.block.BlockFromPaste && desk.work.ImageModified);
    QVERIFY(!desk.block.TransparentPaste);
    QCOMPARE(desk.imgRegion.Appearance(), 1);
    for (const float place : {desk.block.CurrX, desk.block.CurrY, desk.block.PrevX, desk.block.PrevY,
                              desk.block.GrabDX, desk.block.GrabDY})
        QCOMPARE(place, 0.F);
}

void TestPaste::viewGoesHome() {
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.view.HScroll1->setValue(33);
    desk.view.VScroll1->setValue(44);
    offerPicture(sea(QSize(50, 40)));
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.view.picDisp->pos(), QPoint(0, 0));
}

void TestPaste::pointerMeanwhile() {
    ClipboardDesk desk;
    offerPicture(sea(QSize(50, 40)));
    QList<MousePointer> seen;
    connect(&desk.work.picRegion, &Surface::changed, this, [&] { seen.append(screenMousePointer()); });
    desk.paste.mnuEditPasteTransparent_Click();
    QVERIFY(!seen.isEmpty());
    QCOMPARE(seen.count(MousePointer::Hourglass), seen.size());
    QCOMPARE(screenMousePointer(), MousePointer::Default);
}

void TestPaste::snapshotAndUndo() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offerPicture(sea(QSize(50, 40)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.work.UndoAvailable);
    QVERIFY(desk.work.picUndo.Picture() == before);
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
}

void TestPaste::pastesWithoutAPicture() {
    ClipboardDesk desk;
    desk.work.ImageLoaded = false;
    offerPicture(sea(QSize(50, 40)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.block.BlockFromPaste);
}

void TestPaste::pastesTheProgramsOwnCopy() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.lift(QPoint(100, 100), QPoint(149, 129));
    desk.copyCut.mnuEditCopy_Click();
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.picture() == laidOver(before, part(before, QRect(100, 100, 50, 30))));
    QCOMPARE(desk.selection(), QRectF(QPointF(0, 0), QPointF(49, 29)));
}

// The block before stays where it was dragged to.
void TestPaste::pastesOverALiftedBlock() {
    ClipboardDesk desk;
    desk.lift(QPoint(100, 100), QPoint(149, 129));
    desk.drag(QPoint(110, 110), QPoint(210, 160));
    const Raster composed = desk.picture();
    offerPicture(sea(QSize(50, 40)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.work.picUndo.Picture() == composed); // without the dots of its frame
    QVERIFY(desk.picture() == laidOver(composed, sea(QSize(50, 40))));
    desk.drag(QPoint(5, 5), QPoint(25, 25));
    QVERIFY(desk.picture() == laidOver(composed, sea(QSize(50, 40)), QPoint(20, 20)));
}

void TestPaste::pastesOverADrawnBand() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.lift(QPoint(80, 20), QPoint(30, 60)); // rejected, but still drawn
    offerPicture(sea(QSize(20, 10)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.work.picUndo.Picture() == before);
    QVERIFY(desk.picture() == laidOver(before, sea(QSize(20, 10))));
}

void TestPaste::largeBlockIsNotOffered_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("lifted");
    for (const bool lifted : {false, true}) {
        QTest::addRow("as large, %d", lifted) << QSize(400, 300) << lifted;
        QTest::addRow("as wide, %d", lifted) << QSize(400, 20) << lifted;
        QTest::addRow("as high, %d", lifted) << QSize(20, 300) << lifted;
    }
}

void TestPaste::largeBlockIsNotOffered() {
    QFETCH(QSize, size);
    QFETCH(bool, lifted);
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.imgRegion.setAppearance(1);
    desk.block.HasSelection = lifted; // and stays so
    offerPicture(sea(size));
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.dialogs.messages.size(), 0);
    QCOMPARE(desk.block.HasSelection, lifted);
    QCOMPARE(desk.imgRegion.Appearance(), 0);
    QVERIFY(desk.block.BlockFromPaste);
    QVERIFY(desk.picture() == laidOver(before, sea(size)));
    QCOMPARE(desk.shown() != desk.picture(), lifted); // framed
    QVERIFY(desk.work.ImageModified);
}

void TestPaste::onePixel() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offerPicture(sea(QSize(1, 1)));
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.picture() == laidOver(before, sea(QSize(1, 1))));
    QVERIFY(desk.block.HasSelection);
    desk.dialogs.answer(Answer::Ok);
    desk.copyCut.mnuEditCut_Click(); // both far edges are 0
    QCOMPARE(desk.message(), QString("Pas de zone de sélection en cours !"));
}

void TestPaste::unreadablePicture_data() {
    QTest::addColumn<bool>("transparent");
    QTest::newRow("opaque") << false;
    QTest::newRow("transparent") << true;
}

// It is announced, but what comes is none: the block before goes on as it was.
void TestPaste::unreadablePicture() {
    QFETCH(bool, transparent);
    ClipboardDesk desk;
    offerPicture(sea(QSize(50, 40)));
    transparent ? desk.paste.mnuEditPaste_Click() : desk.paste.mnuEditPasteTransparent_Click();
    desk.drag(QPoint(5, 5), QPoint(105, 65));
    desk.work.UndoAvailable = desk.work.ImageModified = false;
    const Raster picture = desk.picture(), shown = desk.shown();
    const QRectF selection = desk.selection();
    offer({{"image/png", "damaged"}, {"image/bmp", QByteArray()}});
    desk.dialogs.answer(Answer::Ok);
    transparent ? desk.paste.mnuEditPasteTransparent_Click() : desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.message(), QString("Pas d'image dans le presse papier !"));
    QVERIFY(desk.picture() == picture && desk.shown() == shown);
    QCOMPARE(desk.selection(), selection);
    QVERIFY(desk.block.HasSelection && desk.block.BlockFromPaste);
    QCOMPARE(desk.block.TransparentPaste, !transparent);
    QVERIFY(desk.work.UndoAvailable); // the snapshot came first
    QVERIFY(desk.work.picUndo.Picture() == picture);
    QVERIFY(!desk.work.ImageModified);
    desk.drag(QPoint(110, 70), QPoint(120, 70));
    QCOMPARE(desk.picture().pixel(140, 90), transparent ? Sea : picture.pixel(140, 90));
}

void TestPaste::tooLargePicture() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offer({{"image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg' width='90000' height='90000'/>"}});
    desk.dialogs.answer(Answer::Ok);
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.message(), QString("mnuEditPaste_Click\r\n7     Mémoire insuffisante"));
    QVERIFY(desk.picture() == before);
    QVERIFY(!desk.block.HasSelection);
}

void TestPaste::editMenuIsTold_data() {
    QTest::addColumn<bool>("picture");
    QTest::newRow("pasted") << true;
    QTest::newRow("nothing there") << false;
}

void TestPaste::editMenuIsTold() {
    QFETCH(bool, picture);
    ClipboardDesk desk;
    if (picture)
        offerPicture(sea(QSize(5, 5)));
    else
        desk.dialogs.answer(Answer::Ok);
    const QSignalSpy told(&desk.paste, &Paste::editStateChanged);
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(told.size(), 1);
}

OVRANO_TEST(TestPaste)
#include "tst_paste.moc"
