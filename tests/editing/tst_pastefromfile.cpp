#include "document/filetools.h"
#include "editing/clipboarddesk.h"
#include "support/testprogram.h"

#include <QTemporaryDir>

using namespace ovrano;

namespace {

constexpr Colour Sea = rgb(20, 70, 190);

} // namespace

/// "Coller depuis un fichier", opaque and transparent.
class TestPasteFromFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void dialogSettings_data();
    void dialogSettings();
    void dialogStartsAnewEachTime();
    void nothingChosen_data();
    void nothingChosen();
    void blockComesToTheCorner();
    void transparentVariant();
    void everyFormat_data();
    void everyFormat();
    void clipboardIsLeftAlone();
    void question();
    void answers_data();
    void answers();
    void fileThatCannotBeRead_data();
    void fileThatCannotBeRead();
    void snapshotAndUndo();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QString store(const QString& name, const Raster& picture, const char* format = "bmp") const {
        return put(path(name), encoded(picture, format));
    }
    static void paste(ClipboardDesk& desk, bool transparent) {
        transparent ? desk.paste.mnuEditPasteFromFileTransparent_Click()
                    : desk.paste.mnuEditPasteFromFile_Click();
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestPasteFromFile::init() {
    clearClipboard();
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void TestPasteFromFile::dialogSettings_data() {
    QTest::addColumn<bool>("transparent");
    QTest::addColumn<QString>("title");
    QTest::newRow("opaque") << false << "Coller depuis un fichier";
    QTest::newRow("transparent") << true << "Coller depuis un fichier en transparence";
}

void TestPasteFromFile::dialogSettings() {
    QFETCH(bool, transparent);
    QFETCH(QString, title);
    ClipboardDesk desk;
    desk.dialogs.cancelOpen();
    paste(desk, transparent);
    const FileRequest& request = desk.dialogs.opens.at(0);
    QCOMPARE(request.title, title);
    QCOMPARE(request.fileName, QString());
    QCOMPARE(request.typeIndex, 0);
    QCOMPARE(request.types.size(), 2);
    QCOMPARE(request.types.at(0).description, QString("Fichiers Images(BMP-GIF-JPEG"));
    QCOMPARE(request.types.at(0).patterns, QStringList({"*.bmp", "*.gif", "*.jpg", "*.jpeg"}));
    QCOMPARE(request.types.at(1).description, QString("Tous les fichiers(*.*)"));
    QCOMPARE(request.types.at(1).patterns, QStringList({"*.*"}));
}

void TestPasteFromFile::dialogStartsAnewEachTime() {
    ClipboardDesk desk;
    desk.dialogs.chooseOpen(store("a.bmp", colourful(QSize(20, 10))), 2);
    desk.dialogs.cancelOpen();
    paste(desk, true);
    paste(desk, false);
    QCOMPARE(desk.dialogs.opens.at(1).fileName, QString());
    QCOMPARE(desk.dialogs.opens.at(1).typeIndex, 0);
    QCOMPARE(desk.dialogs.opens.at(1).title, QString("Coller depuis un fichier"));
}

void TestPasteFromFile::nothingChosen_data() {
    QTest::addColumn<bool>("cancelled");
    QTest::addColumn<bool>("transparent");
    for (const bool transparent : {false, true}) {
        QTest::addRow("cancelled, %d", transparent) << true << transparent;
        QTest::addRow("no name, %d", transparent) << false << transparent;
    }
}

void TestPasteFromFile::nothingChosen() {
    QFETCH(bool, cancelled);
    QFETCH(bool, transparent);
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.block.TransparentPaste = !transparent;
    desk.work.UndoAvailable = desk.work.ImageModified = false;
    desk.view.HScroll1->setValue(33);
    const Raster picture = desk.picture(), shown = desk.shown();
    cancelled ? desk.dialogs.cancelOpen() : desk.dialogs.chooseOpen(QString());
    paste(desk, transparent);
    QCOMPARE(desk.dialogs.messages.size(), 0);
    QVERIFY(desk.picture() == picture && desk.shown() == shown);
    QVERIFY(!desk.work.UndoAvailable && !desk.work.ImageModified);
    QCOMPARE(desk.view.HScroll1->value(), 33);
    QVERIFY(desk.block.HasSelection && !desk.block.BlockFromPaste);
    QCOMPARE(desk.block.TransparentPaste, !transparent);
}

void TestPasteFromFile::blockComesToTheCorner() {
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    const Raster before = desk.picture();
    desk.view.HScroll1->setValue(33);
    desk.dialogs.chooseOpen(store("a.bmp", Raster(QSize(50, 50), Sea)));
    paste(desk, false);
    QVERIFY(desk.picture() == laidOver(before, Raster(QSize(50, 50), Sea)));
    QVERIFY(desk.shown() == framed(desk.picture(), QRect(0, 0, 50, 50)));
    QVERIFY(desk.block.HasSelection && desk.block.BlockFromPaste && !desk.block.TransparentPaste);
    QCOMPARE(desk.imgRegion.Appearance(), 1);
    QCOMPARE(desk.selection(), QRectF(QPointF(0, 0), QPointF(49, 49)));
    QCOMPARE(QPointF(double(desk.block.MinLeft), double(desk.block.MaxLeft)), QPointF(-40, 390));
    QVERIFY(desk.work.ImageModified);
    QCOMPARE(desk.view.HScroll1->value(), 0);
    desk.drag(QPoint(5, 5), QPoint(15, 25));
    QVERIFY(desk.picture() == laidOver(before, Raster(QSize(50, 50), Sea), QPoint(10, 20)));
}

void TestPasteFromFile::transparentVariant() {
    ClipboardDesk desk(grid({"yyyyy", "yyyyy", "yyyyy"}));
    desk.dialogs.chooseOpen(store("a.bmp", grid({"rb.", "grr"})));
    paste(desk, true);
    QCOMPARE(rowsOf(desk.picture()), QStringList({"ybyyy", "gyyyy", "yyyyy"}));
    QVERIFY(desk.block.TransparentPaste);
}

void TestPasteFromFile::everyFormat_data() {
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"bmp", "jpg", "png"})
        QTest::newRow(format) << QByteArray(format);
}

void TestPasteFromFile::everyFormat() {
    QFETCH(QByteArray, format);
    ClipboardDesk desk;
    desk.dialogs.chooseOpen(store("a", Raster(QSize(32, 16), Black), format.constData()));
    paste(desk, false);
    QCOMPARE(desk.selection().bottomRight(), QPointF(31, 15));
    QCOMPARE(desk.picture().pixel(20, 10), Black);
}

void TestPasteFromFile::clipboardIsLeftAlone() {
    ClipboardDesk desk;
    const auto asked = offer({{"image/png", "..."}});
    desk.dialogs.chooseOpen(store("a.bmp", Raster(QSize(50, 50), Sea)));
    paste(desk, false);
    QCOMPARE(desk.picture().pixel(10, 10), Sea);
    QCOMPARE(*asked, QStringList());
}

void TestPasteFromFile::question() {
    ClipboardDesk desk;
    desk.dialogs.chooseOpen(store("a.bmp", Raster(QSize(20, 301), Sea)));
    desk.dialogs.answer(Answer::Cancel);
    paste(desk, false);
    const MessageBox& box = desk.dialogs.messages.at(0);
    QCOMPARE(box.text, PasteQuestion::aboutFile().text(QSize(400, 300), QSize(20, 301)));
    QCOMPARE(box.title, QString("Attention"));
    QCOMPARE(box.icon, Icon::Question);
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
}

void TestPasteFromFile::answers_data() {
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("pasted");
    QTest::newRow("yes") << Answer::Yes << QSize(500, 100) << true;
    QTest::newRow("no") << Answer::No << QSize(400, 300) << true;
    QTest::newRow("cancel") << Answer::Cancel << QSize(400, 300) << false;
}

void TestPasteFromFile::answers() {
    QFETCH(Answer, answer);
    QFETCH(QSize, size);
    QFETCH(bool, pasted);
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.dialogs.chooseOpen(store("a.bmp", Raster(QSize(500, 100), Sea)));
    desk.dialogs.answer(answer);
    paste(desk, false);
    QCOMPARE(desk.work.picDisp.innerSize(), size);
    QCOMPARE(desk.picture().pixel(50, 50) == Sea, pasted);
    QCOMPARE(desk.block.BlockFromPaste, pasted);
    QCOMPARE(desk.work.ImageModified, pasted);
    QVERIFY(!desk.block.HasSelection);
    QVERIFY(desk.work.UndoAvailable);
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
}

void TestPasteFromFile::fileThatCannotBeRead_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("error");
    QTest::addColumn<bool>("transparent");
    for (const bool transparent : {false, true}) {
        QTest::addRow("no picture, %d", transparent)
            << "text.bmp"
            << "481     Image incorrecte : ce fichier ne peut pas être lu comme une image" << transparent;
        QTest::addRow("gone, %d", transparent) << "none.bmp"
                                               << "53     Fichier introuvable" << transparent;
    }
}

void TestPasteFromFile::fileThatCannotBeRead() {
    QFETCH(QString, name);
    QFETCH(QString, error);
    QFETCH(bool, transparent);
    put(path("text.bmp"), "neither");
    ClipboardDesk desk(colourful(QSize(400, 300)), QSize(100, 100));
    desk.lift(QPoint(10, 10), QPoint(59, 39));
    desk.block.TransparentPaste = !transparent;
    desk.work.UndoAvailable = desk.work.ImageModified = false;
    desk.view.HScroll1->setValue(33);
    const Raster picture = desk.picture(), shown = desk.shown();
    desk.dialogs.chooseOpen(path(name));
    desk.dialogs.answer(Answer::Ok);
    paste(desk, transparent);
    QCOMPARE(desk.message(), "mnuEditPasteFromFile_Click\r\n" + error); // the same for both
    QVERIFY(desk.picture() == picture && desk.shown() == shown);
    QVERIFY(desk.block.HasSelection && !desk.block.BlockFromPaste);
    QCOMPARE(desk.block.TransparentPaste, !transparent);
    QCOMPARE(desk.view.HScroll1->value(), 0); // these two came before
    QVERIFY(desk.work.UndoAvailable);
    QVERIFY(desk.work.picUndo.Picture() == picture);
    QVERIFY(!desk.work.ImageModified);
}

void TestPasteFromFile::snapshotAndUndo() {
    ClipboardDesk desk;
    const Raster before = desk.picture();
    desk.dialogs.chooseOpen(store("a.bmp", Raster(QSize(50, 50), Sea)));
    paste(desk, true);
    QVERIFY(desk.work.picUndo.Picture() == before);
    desk.undo.mnuEditUndo_Click();
    QVERIFY(desk.picture() == before);
    QVERIFY(!desk.work.UndoAvailable);
}

OVRANO_TEST(TestPasteFromFile)
#include "tst_pastefromfile.moc"
