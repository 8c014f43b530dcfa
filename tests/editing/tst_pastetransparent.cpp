#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

using namespace ovrano;

/// "Coller en transparence": the colour of the upper-left pixel, and white, let the picture through.
class TestPasteTransparent : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { clearClipboard(); }
    void cleanup() { clearClipboard(); }

    void whatIsSeeThrough_data();
    void whatIsSeeThrough();
    void companions();
    void blockIsDraggedThroughItsMask();
    void flag();
    void opaqueAfterTransparent();
    void undo();
    void manyTiles();

private:
    static void paste(ClipboardDesk& desk, const QStringList& rows) {
        offerPicture(grid(rows));
        desk.paste.mnuEditPasteTransparent_Click();
    }
};

void TestPasteTransparent::whatIsSeeThrough_data() {
    QTest::addColumn<QStringList>("pasted");
    QTest::addColumn<QStringList>("picture");
    QTest::newRow("red corner") << QStringList{"rb.", "grr"} << QStringList{"ybyyy", "gyyyy", "yyyyy"};
    QTest::newRow("white corner") << QStringList{".br", "r.b"} << QStringList{"ybryy", "rybyy", "yyyyy"};
    QTest::newRow("black corner") << QStringList{"#b.", "r##"} << QStringList{"ybyyy", "ryyyy", "yyyyy"};
    QTest::newRow("nothing else") << QStringList{"rrr", "rrr"} << QStringList{"yyyyy", "yyyyy", "yyyyy"};
    QTest::newRow("black stays") << QStringList{"r#r", "###"} << QStringList{"y#yyy", "###yy", "yyyyy"};
}

void TestPasteTransparent::whatIsSeeThrough() {
    QFETCH(QStringList, pasted);
    QFETCH(QStringList, picture);
    ClipboardDesk desk(grid({"yyyyy", "yyyyy", "yyyyy"}));
    paste(desk, pasted);
    QCOMPARE(rowsOf(desk.picture()), picture);
    QVERIFY(desk.block.HasSelection);
    QCOMPARE(desk.imgRegion.Appearance(), 1);
}

void TestPasteTransparent::companions() {
    ClipboardDesk desk(grid({"yyyyy", "yyyyy", "yyyyy"}));
    desk.work.picMask.setInnerSize(QSize(40, 30));
    paste(desk, {"rb.", "grr"});
    QCOMPARE(rowsOf(desk.work.picRegion.Image()), QStringList({".b.", "g.."}));
    QCOMPARE(rowsOf(desk.work.picMask.Image()), QStringList({".#.", "#.."}));
    QCOMPARE(desk.work.picMask.innerSize(), QSize(3, 2));
    QCOMPARE(rowsOf(desk.work.picAuto.Picture()), QStringList({"rb.", "grr"})); // as it came
}

void TestPasteTransparent::blockIsDraggedThroughItsMask() {
    ClipboardDesk desk(QSize(60, 40));
    const Raster before = desk.picture();
    Raster pasted(QSize(20, 10), Black);
    pasted.fill(QRect(5, 5, 15, 5), rgb(255, 0, 0));
    offerPicture(pasted);
    desk.paste.mnuEditPasteTransparent_Click();
    desk.drag(QPoint(5, 5), QPoint(25, 17));
    QVERIFY(desk.picture() == filledBox(before, QRect(25, 17, 15, 5), rgb(255, 0, 0)));
}

void TestPasteTransparent::flag() {
    ClipboardDesk desk(QSize(60, 40));
    paste(desk, {"rb.", "grr"});
    QVERIFY(desk.block.TransparentPaste);
}

void TestPasteTransparent::opaqueAfterTransparent() {
    ClipboardDesk desk(grid({"yyyyy", "yyyyy", "yyyyy"}));
    paste(desk, {"rb.", "grr"});
    desk.paste.mnuEditPaste_Click();
    QVERIFY(!desk.block.TransparentPaste);
    QCOMPARE(rowsOf(desk.picture()), QStringList({"rb.yy", "grryy", "yyyyy"}));
}

void TestPasteTransparent::undo() {
    ClipboardDesk desk(grid({"yyyyy", "yyyyy", "yyyyy"}));
    paste(desk, {"rb.", "grr"});
    desk.undo.mnuEditUndo_Click();
    QCOMPARE(rowsOf(desk.picture()), QStringList({"yyyyy", "yyyyy", "yyyyy"}));
}

void TestPasteTransparent::manyTiles() {
    ClipboardDesk desk(QSize(700, 650));
    const Raster before = desk.picture();
    Raster pasted(QSize(600, 530), rgb(1, 2, 3));
    const QRect hole(200, 240, 320, 60);
    pasted.fill(hole, rgb(250, 0, 0));
    pasted.fill(QRect(590, 520, 10, 10), White);
    offerPicture(pasted);
    desk.paste.mnuEditPasteTransparent_Click();
    QVERIFY(desk.picture() == filledBox(before, hole, rgb(250, 0, 0)));
}

OVRANO_TEST(TestPasteTransparent)
#include "tst_pastetransparent.moc"
