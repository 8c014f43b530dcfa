#include "document/filetools.h"
#include "support/testprogram.h"
#include "wizards/rotfontsbench.h"
#include "wizards/screenofsize.h"
#include "wizards/temporarybmp.h"

#include <QTest>

using namespace ovrano;

class RotFontsApplyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void previewBecomesTheWorkPicture();
    void largeLettersAreThoseOfThePreview_data();
    void largeLettersAreThoseOfThePreview();
    void companionsFollow();
    void undrawnSettingsAreApplied();
    void settingsOfAnEarlierPictureAreGone();
    void sizeAndFileAreShown();
    void mainWindowIsTold();
    void flagsOfTheDocumentStay();
    void textIsRemembered();
    void numbersTooLargeGiveThePlainBackground();

    void noFileStaysBehind();
    void usersOwnFileIsKept();
    void linkOfTheSameNameIsKeptAndNotFollowed();
    void folderOfTheSameNameIsKept();
    void folderMayEndInASeparator();
    void withoutAWritableFolderAPrivateOneIsUsed_data();
    void withoutAWritableFolderAPrivateOneIsUsed();
    void failingFileIsReportedAndThePictureIsThere();

    void closingIsCancelling_data();
    void closingIsCancelling();
};

void RotFontsApplyTest::previewBecomesTheWorkPicture() {
    RotFontsBench bench;
    bench.dialog.txtDegree->setEditText(QStringLiteral("17"));
    bench.dialog.Picture1.setBackColor(rgb(240, 250, 200));
    bench.open();
    bench.enlarge(QSize(60, 20));
    bench.dialog.Command3->click();

    QVERIFY(!bench.isBlank());
    QCOMPARE(bench.work.picDisp.innerSize(), QSize(480, 440));
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
    QCOMPARE(bench.work.picDisp.Picture(), bench.preview().Image()); // committed
    QVERIFY(bench.preview().Picture().isEmpty());                    // while the preview's text is only drawn
    QCOMPARE(bench.dialog.result(), int(QDialog::Accepted));
    QVERIFY(!bench.dialog.isVisible());
    QVERIFY(bench.dialogs.messages.isEmpty());
}

void RotFontsApplyTest::largeLettersAreThoseOfThePreview_data() {
    QTest::addColumn<QString>("size");
    for (const char* size : {"100", "180", "400", "999"})
        QTest::newRow(size) << QString::fromLatin1(size);
}

void RotFontsApplyTest::largeLettersAreThoseOfThePreview() {
    QFETCH(const QString, size);
    RotFontsBench bench;
    bench.open();
    bench.dialog.txtSize->setEditText(size);
    bench.dialog.Text1->setText(QStringLiteral("A.b-Été"));
    bench.dialog.Command3->click();
    QVERIFY(!bench.isBlank());
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
    QCOMPARE(bench.work.picUndo.Image(), bench.preview().Image());
}

void RotFontsApplyTest::companionsFollow() {
    RotFontsBench bench;
    bench.open();
    bench.enlarge(QSize(60, 0));
    bench.work.picRegion.setInnerSize(QSize(30, 40));
    bench.dialog.Command3->click();

    const Raster& picture = bench.work.picDisp.Picture();
    for (const Surface* companion : {&bench.work.picSnap, &bench.work.picUndo}) {
        QCOMPARE(companion->innerSize(), QSize(480, 420));
        QCOMPARE(companion->Image(), picture);
    }
    QCOMPARE(bench.work.picMask.innerSize(), QSize(480, 480));
    QCOMPARE(bench.work.picMask.Picture(), picture);
    QCOMPARE(bench.work.picRegion.innerSize(), QSize(30, 40));
    QCOMPARE(bench.work.picRegion.Picture(), picture);
}

void RotFontsApplyTest::undrawnSettingsAreApplied() {
    RotFontsBench bench;
    bench.dialog.Command1_Click();
    const Raster before = bench.preview().Image();
    bench.dialog.Text1->setText(QStringLiteral("Autre chose"));
    QCOMPARE(bench.preview().Image(), before);
    bench.dialog.Command3->click();
    QVERIFY(!(bench.work.picDisp.Image() == before));
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
}

void RotFontsApplyTest::settingsOfAnEarlierPictureAreGone() {
    RotFontsBench bench;
    bench.work.picDisp.setAutoSize(true);
    bench.work.picDisp.setBackColor(rgb(200, 0, 0));
    bench.work.picDisp.setPicture(patterned(QSize(900, 700)));
    bench.work.picDisp.Line(QPointF(0, 0), QPointF(899, 699), Black,
                            BoxStyle::Filled); // drawn, not committed
    bench.dialog.Command3->click();
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
    QVERIFY(!bench.work.picDisp.AutoSize());
    QCOMPARE(bench.work.picDisp.ForeColor(), rgb(0, 64, 128));
    QCOMPARE(bench.work.picDisp.Font().family(), QStringLiteral("Arial"));
    QCOMPARE(bench.work.picDisp.Font().pixelSize(), 24);
}

void RotFontsApplyTest::sizeAndFileAreShown() {
    RotFontsBench bench;
    QSignalSpy size(&bench.work, &WorkPicture::imageSizeShown);
    QSignalSpy file(&bench.work, &WorkPicture::fileNameShown);
    bench.dialog.Command3->click();
    QCOMPARE(size.size(), 1);
    QCOMPARE(size.first().first().toString(), QStringLiteral("L=420  H=420"));
    QCOMPARE(bench.work.ImageWidth, 420);
    QCOMPARE(file.size(), 1);
    QCOMPARE(file.first().first().toString(), bench.folder.filePath(QStringLiteral("Temp.bmp")));
}

void RotFontsApplyTest::mainWindowIsTold() {
    RotFontsBench bench;
    QSignalSpy picker(&bench.handover, &Handover::pickerReleased);
    QSignalSpy locked(&bench.handover, &Handover::backgroundColourLocked);
    QSignalSpy replaced(&bench.handover, &Handover::pictureReplaced);
    bench.work.picDisp.setInnerSize(QSize(3000, 3000));
    bench.view.setScrollMax();
    bench.view.HScroll1->setValue(70);
    bench.dialog.Command3->click();
    QCOMPARE(bench.view.HScroll1->value(), 0);
    QVERIFY(bench.view.HScroll1->maximum() <= 420);
    QCOMPARE(picker.size(), 1);
    QCOMPARE(locked.size(), 1);
    QCOMPARE(replaced.size(), 1);
}

void RotFontsApplyTest::flagsOfTheDocumentStay() {
    RotFontsBench bench;
    bench.work.ImageModified = true;
    bench.work.UndoAvailable = true;
    bench.dialog.Command3->click();
    QVERIFY(bench.work.ImageModified);
    QVERIFY(bench.work.UndoAvailable);
}

void RotFontsApplyTest::textIsRemembered() {
    RotFontsBench bench;
    bench.memory.Cancelled = 1;
    bench.dialog.Text1->setText(QStringLiteral("  à garder "));
    bench.dialog.Command3->click();
    QCOMPARE(bench.memory.TwoColourText, QStringLiteral("  à garder "));
    QCOMPARE(bench.memory.Cancelled, 0);
    const RotFonts next(bench.handover, bench.memory, bench.dialogs, bench.folder.path());
    QCOMPARE(next.Text1->text(), QStringLiteral("EXEMPLE DE TEXTE - Circulaire - "));
}

void RotFontsApplyTest::numbersTooLargeGiveThePlainBackground() {
    RotFontsBench bench;
    bench.dialogs.pickColour(rgb(5, 50, 5));
    bench.dialog.Command2->click();
    bench.dialog.TxtCX->setText(QStringLiteral("32768"));
    bench.dialog.Command3->click();
    QCOMPARE(bench.work.picDisp.Image(), Raster(QSize(420, 420), rgb(5, 50, 5)));
    QVERIFY(bench.dialogs.messages.isEmpty());
}

void RotFontsApplyTest::noFileStaysBehind() {
    RotFontsBench bench;
    bench.dialog.Command3->click();
    QCOMPARE(namesIn(bench.folder.path()), QStringList());
}

void RotFontsApplyTest::usersOwnFileIsKept() {
    RotFontsBench bench;
    const QString own = put(bench.folder.filePath(QStringLiteral("Temp.bmp")), "of the user");
    bench.dialog.Command3->click();
    QCOMPARE(contentOf(own), QByteArray("of the user"));
    QCOMPARE(namesIn(bench.folder.path()), QStringList{QStringLiteral("Temp.bmp")});
    QCOMPARE(bench.work.picUndo.Image(), bench.preview().Image());
}

void RotFontsApplyTest::linkOfTheSameNameIsKeptAndNotFollowed() {
    RotFontsBench bench;
    const QTemporaryDir elsewhere;
    const QString target = put(elsewhere.filePath(QStringLiteral("precious.txt")), "precious");
    const QString link = bench.folder.filePath(QStringLiteral("Temp.bmp"));
    QVERIFY(QFile::link(target, link));
    bench.dialog.Command3->click();
    QCOMPARE(contentOf(target), QByteArray("precious"));
    QCOMPARE(QFileInfo(link).symLinkTarget(), target);
    QCOMPARE(namesIn(bench.folder.path()), QStringList{QStringLiteral("Temp.bmp")});
}

void RotFontsApplyTest::folderOfTheSameNameIsKept() {
    RotFontsBench bench;
    QVERIFY(QDir(bench.folder.path()).mkdir(QStringLiteral("Temp.bmp")));
    put(bench.folder.filePath(QStringLiteral("Temp.bmp/inside")), "x");
    bench.dialog.Command3->click();
    QCOMPARE(contentOf(bench.folder.filePath(QStringLiteral("Temp.bmp/inside"))), QByteArray("x"));
    QCOMPARE(namesIn(bench.folder.path()), QStringList{QStringLiteral("Temp.bmp")});
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
}

void RotFontsApplyTest::folderMayEndInASeparator() {
    const QTemporaryDir folder;
    const Raster picture = patterned(QSize(13, 7));
    const StoredPicture plain = throughTemporaryBmp(picture, folder.path());
    const StoredPicture ended = throughTemporaryBmp(picture, folder.path() + QLatin1Char('/'));
    QCOMPARE(plain.picture, picture);
    QCOMPARE(ended.picture, picture);
    QCOMPARE(plain.path, folder.filePath(QStringLiteral("Temp.bmp")));
    QCOMPARE(ended.path, plain.path);
}

void RotFontsApplyTest::withoutAWritableFolderAPrivateOneIsUsed_data() {
    QTest::addColumn<bool>("exists");
    QTest::newRow("write-protected") << true;
    QTest::newRow("missing") << false;
}

void RotFontsApplyTest::withoutAWritableFolderAPrivateOneIsUsed() {
    QFETCH(const bool, exists);
    const QTemporaryDir folder;
    const QString program = folder.filePath(QStringLiteral("program"));
    if (exists)
        QVERIFY(QDir().mkdir(program));
    allow(folder.path(), 0755);
    const Raster picture = patterned(QSize(40, 30));
    const Unprivileged nobody;
    const StoredPicture stored = throughTemporaryBmp(picture, program);
    QCOMPARE(stored.picture, picture);
    QCOMPARE(QFileInfo(stored.path).fileName(), QStringLiteral("Temp.bmp"));
    QVERIFY(stored.path.startsWith(QDir::tempPath()));
    QVERIFY(!stored.path.startsWith(program));
    QVERIFY(!QFileInfo::exists(QFileInfo(stored.path).path())); // the private folder went with it
    QCOMPARE(namesIn(folder.path()).isEmpty(), !exists);
}

void RotFontsApplyTest::failingFileIsReportedAndThePictureIsThere() {
    RotFontsBench bench;
    bench.dialogs.answer(Answer::Ok);
    QSignalSpy file(&bench.work, &WorkPicture::fileNameShown);
    {
        const SmallDisk full(1000);
        bench.dialog.Command3->click();
    }
    QCOMPARE(bench.dialogs.messages.size(), 1);
    QVERIFY(bench.dialogs.messages.first().text.startsWith(QStringLiteral("Command3_Click\r\n61     ")));
    QCOMPARE(file.size(), 0);
    QCOMPARE(bench.work.picDisp.Image(), bench.preview().Image());
    QCOMPARE(bench.work.picUndo.Image(), bench.preview().Image());
    QCOMPARE(bench.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(namesIn(bench.folder.path()), QStringList());
}

void RotFontsApplyTest::closingIsCancelling_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("close box") << 1;
    QTest::newRow("Escape") << 2;
}

void RotFontsApplyTest::closingIsCancelling() {
    QFETCH(const int, way);
    RotFontsBench bench;
    bench.work.picDisp.setPicture(patterned(bench.work.picDisp.innerSize()));
    const Raster before = bench.work.picDisp.Image();
    bench.memory.TwoColourText = QStringLiteral("d'avant");
    bench.open();
    QCOMPARE(bench.memory.Cancelled, 0);
    if (way == 0)
        bench.dialog.Command5->click();
    else if (way == 1)
        bench.dialog.close();
    else
        QTest::keyClick(&bench.dialog, Qt::Key_Escape);
    QVERIFY(!bench.dialog.isVisible());
    QCOMPARE(bench.memory.Cancelled, 1);
    QCOMPARE(bench.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(bench.memory.TwoColourText, QStringLiteral("d'avant"));
    QCOMPARE(bench.work.picDisp.Image(), before);
}

OVRANO_TEST_RUN((runOnScreen<RotFontsApplyTest, 1366, 768>))
#include "tst_rotfontsapply.moc"
