#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

using namespace ovrano;

namespace {

constexpr Colour Sea = rgb(20, 70, 190);

Raster sea(QSize size) {
    return Raster(size, Sea);
}

} // namespace

/// Pasting a picture larger than the work picture.
class TestPasteQuestion : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void texts();
    void askedWhenLargerInADirection_data();
    void askedWhenLargerInADirection();
    void question();
    void yesTakesThePastedSize_data();
    void yesTakesThePastedSize();
    void yesFitsTheView();
    void yesCanBeUndone();
    void noKeepsTheSize();
    void noLeavesALiftedFlag();
    void cancelPastesNothing_data();
    void cancelPastesNothing();
    void ontoAnEmptyPicture_data();
    void ontoAnEmptyPicture();
    void transparentAndLarge();
    void yesBeyondTheScrollBars();
};

void TestPasteQuestion::texts() {
    QCOMPARE(PasteQuestion::aboutClipboard().text(QSize(400, 300), QSize(500, 100)),
             QString("Image L=400 H=300\r\n"
                     "Colle image L=500 H=100\r\n"
                     "Largeur/Hauteur de l'image à coller est plus large  que la taille du support. \r\n"
                     "Agrandir la Largeur/Hauteur de l'image en cours ?"));
    QCOMPARE(PasteQuestion::aboutFile().text(QSize(1400, 30), QSize(5, 12345)),
             QString("Image en cours L=1400 H=30\r\n"
                     "Coller image L=5 H=12345\r\n"
                     "Largeur/Hauteur de l'image dans le presse papier est plus grande"
                     " que la taille du support. \r\n"
                     "Agrandir la Largeur/Hauteur de l'image en cours ?"));
}

void TestPasteQuestion::askedWhenLargerInADirection_data() {
    QTest::addColumn<QSize>("pasted");
    QTest::addColumn<bool>("asked");
    QTest::newRow("as large") << QSize(400, 300) << false;
    QTest::newRow("wider") << QSize(401, 1) << true;
    QTest::newRow("higher") << QSize(1, 301) << true;
    QTest::newRow("both") << QSize(401, 301) << true;
}

void TestPasteQuestion::askedWhenLargerInADirection() {
    QFETCH(QSize, pasted);
    QFETCH(bool, asked);
    ClipboardDesk desk;
    offerPicture(sea(pasted));
    if (asked)
        desk.dialogs.answer(Answer::No);
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.dialogs.messages.size(), asked ? 1 : 0);
}

void TestPasteQuestion::question() {
    ClipboardDesk desk;
    offerPicture(sea(QSize(500, 100)));
    desk.dialogs.answer(Answer::No);
    desk.paste.mnuEditPaste_Click();
    const MessageBox& box = desk.dialogs.messages.at(0);
    QCOMPARE(box.text, PasteQuestion::aboutClipboard().text(QSize(400, 300), QSize(500, 100)));
    QCOMPARE(box.title, QString("Attention"));
    QCOMPARE(box.icon, Icon::Question);
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
}

void TestPasteQuestion::yesTakesThePastedSize_data() {
    QTest::addColumn<QSize>("pasted");
    QTest::newRow("wider, shrinks downwards") << QSize(500, 100);
    QTest::newRow("higher, shrinks sideways") << QSize(30, 700);
    QTest::newRow("larger") << QSize(410, 310);
}

void TestPasteQuestion::yesTakesThePastedSize() {
    QFETCH(QSize, pasted);
    ClipboardDesk desk;
    desk.work.picDisp.setBorder(1);
    offerPicture(colourful(pasted));
    desk.dialogs.answer(Answer::Yes);
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.work.picDisp.innerSize(), pasted);
    QVERIFY(desk.picture() == colourful(pasted));
    QCOMPARE(desk.work.picSnap.Width(), desk.work.picDisp.Width());
    QCOMPARE(desk.work.picSnap.Height(), desk.work.picDisp.Height());
    QCOMPARE(QSize(desk.work.ImageWidth, desk.work.ImageHeight), pasted);
    QVERIFY(!desk.block.HasSelection); // as large as the picture by now
    QCOMPARE(desk.imgRegion.Appearance(), 0);
    QVERIFY(desk.work.ImageModified);
}

void TestPasteQuestion::yesFitsTheView() {
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    const QSignalSpy sizes(&desk.work, &WorkPicture::imageSizeShown);
    offerPicture(sea(QSize(500, 120)));
    desk.dialogs.answer(Answer::Yes);
    desk.paste.mnuEditPaste_Click();
    QCOMPARE(desk.view.HScroll1->maximum(), 400);
    QCOMPARE(desk.view.VScroll1->maximum(), 20);
    QCOMPARE(sizes.last().at(0).toString(), QString("L=500  H=120"));
}

void TestPasteQuestion::yesCanBeUndone() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offerPicture(sea(QSize(500, 100)));
    desk.dialogs.answer(Answer::Yes);
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.work.UndoAvailable);
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
}

void TestPasteQuestion::noKeepsTheSize() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    offerPicture(colourful(QSize(500, 100)));
    desk.dialogs.answer(Answer::No);
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.picture() == laidOver(before, part(colourful(QSize(500, 100)), QRect(0, 0, 400, 100))));
    QVERIFY(desk.shown() == desk.picture());
    QVERIFY(!desk.block.HasSelection);
    QCOMPARE(desk.imgRegion.Appearance(), 0);
    QVERIFY(desk.block.BlockFromPaste && desk.work.ImageModified);
    QCOMPARE(desk.selection(), QRectF(QPointF(0, 0), QPointF(499, 99)));
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
}

void TestPasteQuestion::noLeavesALiftedFlag() {
    ClipboardDesk desk;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    offerPicture(sea(QSize(500, 100)));
    desk.dialogs.answer(Answer::No);
    desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.block.HasSelection);
    QCOMPARE(desk.imgRegion.Appearance(), 0);
}

void TestPasteQuestion::cancelPastesNothing_data() {
    QTest::addColumn<bool>("transparent");
    QTest::newRow("opaque") << false;
    QTest::newRow("transparent") << true;
}

void TestPasteQuestion::cancelPastesNothing() {
    QFETCH(bool, transparent);
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.block.TransparentPaste = !transparent;
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.block.TransparentPaste = !transparent;
    desk.work.UndoAvailable = desk.work.ImageModified = false;
    desk.view.HScroll1->setValue(33);
    const Raster picture = desk.picture(), shown = desk.shown();
    offerPicture(sea(QSize(500, 100)));
    desk.dialogs.answer(Answer::Cancel);
    transparent ? desk.paste.mnuEditPasteTransparent_Click() : desk.paste.mnuEditPaste_Click();
    QVERIFY(desk.picture() == picture && desk.shown() == shown);
    QVERIFY(desk.work.UndoAvailable);
    QVERIFY(desk.work.picUndo.Picture() == picture);
    QCOMPARE(desk.view.HScroll1->value(), 0);
    QVERIFY(!desk.work.ImageModified);
    QVERIFY(desk.block.HasSelection && !desk.block.BlockFromPaste);
    QCOMPARE(desk.block.TransparentPaste, !transparent); // of the block before
    QCOMPARE(desk.imgRegion.Appearance(), 1);
    QCOMPARE(desk.selection(), QRectF(QPointF(10, 10), QPointF(59, 39)));
}

void TestPasteQuestion::ontoAnEmptyPicture_data() {
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QSize>("size");
    QTest::newRow("yes") << Answer::Yes << QSize(50, 40);
    QTest::newRow("no") << Answer::No << QSize(0, 0);
    QTest::newRow("cancel") << Answer::Cancel << QSize(0, 0);
}

void TestPasteQuestion::ontoAnEmptyPicture() {
    QFETCH(Answer, answer);
    QFETCH(QSize, size);
    for (const bool transparent : {false, true}) {
        ClipboardDesk desk{Raster()};
        offerPicture(sea(QSize(50, 40)));
        desk.dialogs.answer(answer);
        transparent ? desk.paste.mnuEditPasteTransparent_Click() : desk.paste.mnuEditPaste_Click();
        QCOMPARE(desk.dialogs.messages.size(), 1);
        QCOMPARE(desk.work.picDisp.innerSize(), size);
        QCOMPARE(desk.picture().size(), size);
        if (!size.isEmpty())
            QCOMPARE(desk.picture().pixel(0, 0), transparent ? White : Sea);
    }
}

void TestPasteQuestion::transparentAndLarge() {
    ClipboardDesk desk(grid({"yyy", "yyy"}));
    offerPicture(grid({"rb.g", "brrr"}));
    desk.dialogs.answer(Answer::No);
    desk.paste.mnuEditPasteTransparent_Click();
    QCOMPARE(rowsOf(desk.picture()), QStringList({"yby", "byy"}));
}

void TestPasteQuestion::yesBeyondTheScrollBars() {
    ClipboardDesk desk;
    putOnClipboard(sea(QSize(40'000, 2)));
    desk.dialogs.answer(Answer::Yes);
    desk.dialogs.answer(Answer::Ok);
    desk.paste.mnuEditPaste_Click();
    // The picture is there, and what cannot be done is told afterwards.
    QCOMPARE(desk.picture(), sea(QSize(40'000, 2)));
    QVERIFY(desk.work.ImageModified);
    QVERIFY(desk.dialogs.messages.last().text.startsWith(QStringLiteral("mnuEditPaste_Click\r\n6 ")));
}

OVRANO_TEST(TestPasteQuestion)
#include "tst_pastequestion.moc"
