#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

using namespace ovrano;

namespace {

constexpr Colour Sea = rgb(20, 70, 190);

} // namespace

/// "Coller dans une nouvelle image": what the clipboard holds becomes the work picture.
class TestPasteIntoNew : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void nothingToPaste_data();
    void nothingToPaste();
    void pictureTakesItsPlace();
    void labels();
    void flags();
    void companions();
    void viewGoesHomeAndFits();
    void toolsAreTold();
    void liftedBlockIsForgotten();
    void snapshotAndUndo();
    void ownPictureIsShared();
    void replacesAnEmptyPicture();
    void changesAreNotAskedAbout();
    void tooLargePicture();
    void longerThanTheBarsCanScroll();
};

void TestPasteIntoNew::nothingToPaste_data() {
    QTest::addColumn<OtherProgram::Offers>("offers");
    QTest::newRow("empty") << OtherProgram::Offers{};
    QTest::newRow("text only") << OtherProgram::Offers{{"text/plain", "texte"}};
    QTest::newRow("damaged") << OtherProgram::Offers{{"image/png", "damaged"}};
    QTest::newRow("not given") << OtherProgram::Offers{{"image/bmp", QByteArray()}};
}

void TestPasteIntoNew::nothingToPaste() {
    QFETCH(OtherProgram::Offers, offers);
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.work.ImageModified = true;
    desk.work.UndoAvailable = false;
    desk.view.HScroll1->setValue(33);
    const Raster picture = desk.picture(), shown = desk.shown(), kept = desk.work.picUndo.Picture();
    offer(offers);
    desk.dialogs.answer(Answer::Ok);
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(desk.message(), QString("Pas d'image dans le presse papier !"));
    QVERIFY(desk.isInputError());
    QVERIFY(desk.picture() == picture && desk.shown() == shown && desk.work.picUndo.Picture() == kept);
    QVERIFY(desk.block.HasSelection);
    QVERIFY(desk.work.ImageModified && !desk.work.UndoAvailable);
    QCOMPARE(desk.view.HScroll1->value(), 33);
    QCOMPARE(desk.work.shownPath(), QString("/some/where.bmp"));
    QVERIFY(!desk.work.picRegion.Picture().isEmpty());
}

void TestPasteIntoNew::pictureTakesItsPlace() {
    ClipboardDesk desk;
    desk.work.picDisp.setBorder(1);
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(desk.picture() == colourful(QSize(320, 200)));
    QVERIFY(desk.shown() == desk.picture());
    QCOMPARE(desk.work.picDisp.innerSize(), QSize(320, 200));
    QVERIFY(desk.work.picAuto.Picture() == desk.picture());
    QCOMPARE(desk.dialogs.messages.size(), 0); // smaller or larger
}

void TestPasteIntoNew::labels() {
    ClipboardDesk desk;
    const QSignalSpy sizes(&desk.work, &WorkPicture::imageSizeShown);
    const QSignalSpy files(&desk.work, &WorkPicture::fileNameShown);
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(sizes.last().at(0).toString(), QString("L=320  H=200"));
    QCOMPARE(files.last().at(0).toString(), QString());
    QCOMPARE(desk.work.ImageWidth, 320);
    QCOMPARE(desk.work.ImageHeight, 200);
}

void TestPasteIntoNew::flags() {
    ClipboardDesk desk;
    desk.work.ImageLoaded = false;
    desk.work.ImageModified = true;
    desk.work.CurrentFileName = "/kept.bmp";
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(desk.work.ImageLoaded && !desk.work.ImageModified && desk.work.UndoAvailable);
    QCOMPARE(desk.work.CurrentFileName, QString("/kept.bmp"));
}

void TestPasteIntoNew::companions() {
    ClipboardDesk desk;
    for (Surface* surface : {&desk.work.picSnap, &desk.work.picRegion, &desk.work.picMask})
        surface->setPicture(colourful(QSize(33, 44)));
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    for (const Surface* surface : {&desk.work.picSnap, &desk.work.picRegion, &desk.work.picMask})
        QVERIFY(surface->Picture().isEmpty());
}

void TestPasteIntoNew::viewGoesHomeAndFits() {
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.view.HScroll1->setValue(33);
    desk.view.VScroll1->setValue(44);
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(desk.view.picDisp->pos(), QPoint(0, 0));
    QCOMPARE(desk.view.HScroll1->maximum(), 220);
    QCOMPARE(desk.view.VScroll1->maximum(), 100);
}

void TestPasteIntoNew::toolsAreTold() {
    ClipboardDesk desk;
    const QSignalSpy picker(&desk.paste, &Paste::pickerReleased);
    const QSignalSpy menu(&desk.paste, &Paste::editStateChanged);
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(!picker.isEmpty());
    QCOMPARE(menu.size(), 1);
    QCOMPARE(desk.widget.focusWidget(), desk.view.picDisp);
}

void TestPasteIntoNew::liftedBlockIsForgotten() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    const Raster before = desk.picture();
    offerPicture(colourful(QSize(320, 200)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(!desk.block.HasSelection);
    QCOMPARE(desk.selection(), QRectF());
    QVERIFY(desk.work.picUndo.Picture() == before); // without the dots of the frame
    desk.drag(QPoint(30, 20), QPoint(100, 90));     // draws a band, and moves nothing
    QVERIFY(desk.picture() == colourful(QSize(320, 200)));
}

void TestPasteIntoNew::snapshotAndUndo() {
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    const Raster before = desk.picture();
    offerPicture(Raster(QSize(320, 200), Sea));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(desk.work.UndoAvailable);
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
    QCOMPARE(desk.work.picDisp.innerSize(), QSize(400, 300));
    QCOMPARE(desk.view.HScroll1->maximum(), 220); // the ranges stay, on purpose
    QVERIFY(!desk.work.UndoAvailable);
}

void TestPasteIntoNew::ownPictureIsShared() {
    ClipboardDesk desk(QSize(600, 600));
    const Raster before = desk.picture();
    desk.copyCut.mnuEditCopy_Click();
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(desk.picture().sharesTile(before, 599, 599));
}

void TestPasteIntoNew::replacesAnEmptyPicture() {
    ClipboardDesk desk{Raster()};
    offerPicture(colourful(QSize(32, 20)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QVERIFY(desk.picture() == colourful(QSize(32, 20)));
}

void TestPasteIntoNew::changesAreNotAskedAbout() {
    ClipboardDesk desk;
    desk.work.ImageModified = true;
    offerPicture(colourful(QSize(32, 20)));
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(desk.dialogs.messages.size(), 0);
}

void TestPasteIntoNew::tooLargePicture() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offer({{"image/svg+xml", "<svg xmlns='http://www.w3.org/2000/svg' width='90000' height='90000'/>"}});
    desk.dialogs.answer(Answer::Ok);
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(desk.message(), QString("Mnu_ColleNouvIMG_Click\r\n7     Mémoire insuffisante"));
    QVERIFY(desk.picture() == before);
    QVERIFY(!desk.work.UndoAvailable);
}

// It is there all the same, only the bars do not reach its end.
void TestPasteIntoNew::longerThanTheBarsCanScroll() {
    ClipboardDesk desk;
    offerPicture(Raster(QSize(40'000, 2), Sea));
    desk.dialogs.answer(Answer::Ok);
    desk.paste.Mnu_ColleNouvIMG_Click();
    QCOMPARE(desk.message(), QString("Mnu_ColleNouvIMG_Click\r\n6     Dépassement de capacité"));
    QVERIFY(desk.picture() == Raster(QSize(40'000, 2), Sea));
    QVERIFY(desk.work.ImageLoaded && !desk.work.ImageModified);
}

OVRANO_TEST(TestPasteIntoNew)
#include "tst_pasteintonew.moc"
