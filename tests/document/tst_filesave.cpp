#include "document/picturereader.h"
#include "document/savetest.h"
#include "support/testprogram.h"

using namespace ovrano;

class FileSaveTest : public SaveTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void titleIsRewritten_data();
    void titleIsRewritten();
    void linkAndPermissionsAreKept_data();
    void linkAndPermissionsAreKept();

    void dialogIsSetUp();
    void dialogStartsOnTheRowLastUsed();
    void dialogProposesTheFileThatIsShown();
    void overwritingIsAskedForTheFileThatIsWritten();

    void bmpHoldsWhatIsDrawn();
    void bmpWithoutDot();
    void jpegOfFixedRatio_data();
    void jpegOfFixedRatio();
    void gifIsWritten();
    void existingFileIsReplaced_data();
    void existingFileIsReplaced();
    void existingFileKeepsItsPermissions_data();
    void existingFileKeepsItsPermissions();
    void linkStaysALink_data();
    void linkStaysALink();
    void labelShowsTheSavedPath_data();
    void labelShowsTheSavedPath();
    void otherRowWritesNothing();
    void savingKeepsThePictureModified();

    void ratioTyped_data();
    void ratioTyped();
    void ratioIsAskedForTheRewrittenTitle();
    void lastRatioIsProposedAgain();
    void ratioCancelledWritesAtFullRatio();
    void ratioBeyondSixteenBitsIsAnError();
};

void FileSaveTest::titleIsRewritten_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("saved");
    QTest::newRow("no dot") << "photo" << int{Bmp} << "bmp";
    QTest::newRow("no dot, JPEG") << "photo" << int{Jpeg50} << "jpg";
    QTest::newRow("no dot, GIF") << "photo" << int{Gif} << "gif";
    QTest::newRow("several dots") << "a.b.c" << int{Jpeg80} << "a.jpg";
    QTest::newRow("right extension") << "photo.bmp" << int{Bmp} << "photo.bmp";
    QTest::newRow("other case") << "photo.BMP" << int{Bmp} << "photo.bmp";
    QTest::newRow("other extension") << "photo.bmp" << int{Jpeg100} << "photo.jpg";
    QTest::newRow("typed ratio") << "photo.jpeg" << int{JpegCustom} << "photo.jpg";
    QTest::newRow("dot at the end") << "photo." << int{Gif} << "photo.gif";
    QTest::newRow("dot at the start") << ".photo" << int{Bmp} << ".bmp";
    QTest::newRow("dot only") << "." << int{Bmp} << ".bmp";
    QTest::newRow("nothing") << "" << int{Bmp} << "bmp";
    QTest::newRow("no such row") << "a.b" << 7 << "a.";
    QTest::newRow("row 0") << "a.b" << 0 << "a.";
}

void FileSaveTest::titleIsRewritten() {
    QFETCH(QString, title);
    QFETCH(int, row);
    QFETCH(QString, saved);
    QCOMPARE(savedTitle(title, row), saved);
}

void FileSaveTest::linkAndPermissionsAreKept_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::newRow("BMP") << int{Bmp} << "a.bmp";
    QTest::newRow("JPEG") << int{Jpeg80} << "a.jpg";
    QTest::newRow("GIF") << int{Gif} << "a.gif";
}

void FileSaveTest::linkAndPermissionsAreKept() {
    QFETCH(int, row);
    QFETCH(QString, name);
    constexpr QFile::Permissions OwnerOnly = QFile::ReadOwner | QFile::WriteOwner;
    put(path("real"), "old");
    QFile::setPermissions(path("real"), OwnerOnly);
    QVERIFY(QFile::link(path("real"), path(name)));
    save(name, row);
    QVERIFY(QFileInfo(path(name)).isSymLink());
    QVERIFY(contentOf(path("real")) != "old");
    QVERIFY(!QFileInfo(path("real")).permissions().testFlag(QFile::ReadOther));
}

void FileSaveTest::dialogIsSetUp() {
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    const FileRequest& request = m_dialogs->saves.at(0);
    QCOMPARE(request.title, QString("Enregistrer l'image Sous..."));
    QCOMPARE(request.typeIndex, 0);
    const QList<QStringList> expected = {
        {"Image en mode point  (*.BMP)", "*.BMP"},          {"Format JPG-Ratio 100% (*.JPG)", "*.JPG"},
        {"Format JPG-Ratio 80%  (*.JPG)", "*.JPG"},         {"Format JPG-Ratio 50%  (*.JPG)", "*.JPG"},
        {"Format JPG-Ratio personnalisé (*.JPG)", "*.JPG"}, {"Fichier GIF 256 couleurs", "*.gif"}};
    QCOMPARE(request.types.size(), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i)
        QCOMPARE(QStringList(request.types.at(i).description) + request.types.at(i).patterns, expected.at(i));
}

void FileSaveTest::dialogStartsOnTheRowLastUsed() {
    save("a.x", Jpeg50);
    save("b.x", Gif);
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    QCOMPARE(m_dialogs->saves.at(0).typeIndex, 0);
    QCOMPARE(m_dialogs->saves.at(1).typeIndex, Jpeg50 - 1);
    QCOMPARE(m_dialogs->saves.at(2).typeIndex, Gif - 1);
}

void FileSaveTest::dialogProposesTheFileThatIsShown() {
    m_work->showFileName("Sans Nom"); // no file yet
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    const QString opened = put(path("fond.png"), "a picture");
    m_work->showFileName(opened);
    save("a.x", Bmp);
    m_work->CurrentFileName = "/home/moi/lettre.txt"; // what could not be opened
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    m_work->showFileName(path("Temp.bmp")); // what a text dialog has deleted
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    QCOMPARE(m_dialogs->saves.at(0).fileName, QString());
    QCOMPARE(m_dialogs->saves.at(1).fileName, opened);
    QCOMPARE(m_dialogs->saves.at(2).fileName, path("a.bmp"));
    QCOMPARE(m_dialogs->saves.at(3).fileName, QString());
}

void FileSaveTest::overwritingIsAskedForTheFileThatIsWritten() {
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    const auto target = m_dialogs->saves.at(0).target;
    QVERIFY(target);
    QCOMPARE(target("/home/moi/photo.png", Bmp - 1), QString("/home/moi/photo.bmp"));
    QCOMPARE(target("/home/moi/a.b.c", Jpeg80 - 1), QString("/home/moi/a.jpg"));
    QCOMPARE(target("/home/moi/photo", Gif - 1), QString("/home/moi/gif"));
    QCOMPARE(target("/photo.x", JpegCustom - 1), QString("/photo.jpg"));
    QCOMPARE(target("/home/m.o.i/photo.x", Bmp - 1), QString("/home/m.o.i/photo.bmp"));
}

void FileSaveTest::bmpHoldsWhatIsDrawn() {
    m_work->picDisp.Line(QPointF(10, 10), QPointF(50, 40), rgb(255, 0, 0), BoxStyle::Filled); // not committed
    save("photo.bmp", Bmp);
    QVERIFY(LoadPicture(path("photo.bmp")) == m_work->picDisp.Image());
    QVERIFY(!(m_work->picDisp.Image() == m_work->picDisp.Picture()));
    QCOMPARE(names(), QStringList("photo.bmp"));
}

void FileSaveTest::bmpWithoutDot() {
    save("photo", Bmp);
    QCOMPARE(names(), QStringList("bmp"));
    QVERIFY(LoadPicture(path("bmp")) == m_work->picDisp.Image());
}

void FileSaveTest::jpegOfFixedRatio_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("ratio");
    QTest::newRow("100") << int{Jpeg100} << "100";
    QTest::newRow("80") << int{Jpeg80} << "80";
    QTest::newRow("50") << int{Jpeg50} << "50";
}

void FileSaveTest::jpegOfFixedRatio() {
    QFETCH(int, row);
    QFETCH(QString, ratio);
    save("a.b.c", row);
    QCOMPARE(names(), QStringList("a.jpg"));
    QCOMPARE(LoadPicture(path("a.jpg")).size(), QSize(120, 90));
    saveAtTypedRatio("typed.jpg", ratio);
    QCOMPARE(contentOf(path("a.jpg")), contentOf(path("typed.jpg")));
}

void FileSaveTest::gifIsWritten() {
    save("photo.png", Gif);
    QCOMPARE(names(), QStringList("photo.gif"));
    QCOMPARE(contentOf(path("photo.gif")).left(4), QByteArray("GIF8"));
    QCOMPARE(LoadPicture(path("photo.gif")).size(), QSize(120, 90));
}

void FileSaveTest::existingFileIsReplaced_data() {
    everyFormat();
}

void FileSaveTest::existingFileIsReplaced() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path(name), QByteArray(300'000, 'x'));
    save(name, row);
    QCOMPARE(names(), QStringList(name));
    QCOMPARE(LoadPicture(path(name)).size(), QSize(120, 90));
    QVERIFY(QFileInfo(path(name)).size() < 300'000);
}

void FileSaveTest::existingFileKeepsItsPermissions_data() {
    everyFormat();
}

void FileSaveTest::existingFileKeepsItsPermissions() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path(name), "old");
    allow(path(name), 0640);
    save(name, row);
    QCOMPARE(QFileInfo(path(name)).permissions() & ~(QFile::ReadOwner | QFile::WriteOwner),
             QFile::Permissions(QFile::ReadUser | QFile::WriteUser | QFile::ReadGroup));
}

void FileSaveTest::linkStaysALink_data() {
    everyFormat();
}

void FileSaveTest::linkStaysALink() {
    QFETCH(int, row);
    QFETCH(QString, name);
    QVERIFY(QDir(m_dir->path()).mkdir("else"));
    put(path("else/file"), "old");
    QVERIFY(QFile::link(path("else/file"), path(name)));
    save(name, row);
    QCOMPARE(QFile::symLinkTarget(path(name)), path("else/file"));
    QCOMPARE(LoadPicture(path("else/file")).size(), QSize(120, 90));
}

void FileSaveTest::labelShowsTheSavedPath_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("saved");
    QTest::newRow("BMP") << int{Bmp} << "a.bmp";
    QTest::newRow("JPEG") << int{Jpeg80} << "a.jpg";
    QTest::newRow("GIF") << int{Gif} << "a.gif";
}

void FileSaveTest::labelShowsTheSavedPath() {
    QFETCH(int, row);
    QFETCH(QString, saved);
    save("a.b.c", row);
    QCOMPARE(m_label->size(), 1);
    QCOMPARE(m_label->at(0).at(0).toString(), path(saved));
    QCOMPARE(m_work->CurrentFileName, path("a.b.c")); // what the dialog gave
}

void FileSaveTest::otherRowWritesNothing() {
    save("a.b", 7);
    QCOMPARE(names(), QStringList());
    QCOMPARE(m_label->last().at(0).toString(), path("a."));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileSaveTest::savingKeepsThePictureModified() {
    m_work->ImageModified = true;
    save("a.bmp", Bmp);
    QVERIFY(m_work->ImageModified);
    m_work->ImageModified = false;
    save("a.bmp", Bmp);
    QVERIFY(!m_work->ImageModified);
}

void FileSaveTest::ratioTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("same"); // the ratio at which the same file comes out
    QTest::newRow("too low") << "15"
                             << "100";
    QTest::newRow("just too low") << "19"
                                  << "100";
    QTest::newRow("lowest") << "20"
                            << "20";
    QTest::newRow("rounded up to the lowest") << "19.6"
                                              << "20";
    QTest::newRow("highest") << "100"
                             << "100";
    QTest::newRow("too high") << "101"
                              << "100";
    QTest::newRow("letters") << "abc"
                             << "100";
    QTest::newRow("fraction") << "55.6"
                              << "56";
    QTest::newRow("half to even") << "54.5"
                                  << "54";
    QTest::newRow("nothing") << ""
                             << "100";
    QTest::newRow("zero") << "0"
                          << "100";
    QTest::newRow("negative") << "-50"
                              << "100";
    QTest::newRow("with a unit") << "40 %"
                                 << "40";
}

void FileSaveTest::ratioTyped() {
    QFETCH(QString, typed);
    QFETCH(QString, same);
    saveAtTypedRatio("typed.jpg", typed);
    saveAtTypedRatio("same.jpg", same);
    saveAtTypedRatio("other.jpg", "33");
    QCOMPARE(contentOf(path("typed.jpg")), contentOf(path("same.jpg")));
    QVERIFY(contentOf(path("typed.jpg")) != contentOf(path("other.jpg")));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileSaveTest::ratioIsAskedForTheRewrittenTitle() {
    saveAtTypedRatio("a.b.c", "50");
    const InputBox& asked = m_dialogs->inputs.at(0);
    QCOMPARE(asked.prompt, QString("Indiquez le ratio de compression (20-100) pour le fichier a.jpg."));
    QCOMPARE(asked.title, QString("Valeur du ratio de compression"));
    QCOMPARE(asked.proposed, QString("100"));
}

void FileSaveTest::lastRatioIsProposedAgain() {
    saveAtTypedRatio("a.x", "55.6");
    saveAtTypedRatio("a.x", "abc");
    saveAtTypedRatio("a.x", "");
    saveAtTypedRatio("a.x", "30");
    QCOMPARE(m_dialogs->inputs.at(1).proposed, QString("55.6"));
    QCOMPARE(m_dialogs->inputs.at(2).proposed, QString("abc"));
    QCOMPARE(m_dialogs->inputs.at(3).proposed, QString("100"));
}

void FileSaveTest::ratioCancelledWritesAtFullRatio() {
    m_dialogs->cancelInput();
    save("a.jpg", JpegCustom);
    saveAtTypedRatio("b.jpg", "100");
    QCOMPARE(contentOf(path("a.jpg")), contentOf(path("b.jpg")));
    QVERIFY(!m_work->SaveCancelled);
}

void FileSaveTest::ratioBeyondSixteenBitsIsAnError() {
    m_dialogs->answer(Answer::Ok);
    saveAtTypedRatio("a.jpg", "99999");
    QCOMPARE(reported(), error::Overflow);
    QCOMPARE(names(), QStringList());
    QVERIFY(!m_work->SaveCancelled);
    QCOMPARE(m_label->size(), 0);
    m_dialogs->cancelInput();
    save("a.jpg", JpegCustom);
    QCOMPARE(m_dialogs->inputs.last().proposed, QString("99999")); // it was typed, if in vain
}

OVRANO_TEST(FileSaveTest)
#include "tst_filesave.moc"
