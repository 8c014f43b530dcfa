#include "document/filesave.h"
#include "document/filetools.h"
#include "document/picturereader.h"
#include "support/answeringdialogs.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

namespace {

enum Row { Bmp = 1, Jpeg100, Jpeg80, Jpeg50, JpegCustom, Gif };

constexpr auto Complaint = "Erreur lors de l'enregistrement du fichier !";

} // namespace

class FileSaveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void titleIsRewritten_data();
    void titleIsRewritten();

    void dialogIsSetUp();
    void dialogStartsOnTheRowLastUsed();
    void dialogProposesTheLastFile();
    void overwritingIsAskedForTheFileThatIsWritten();

    void bmpHoldsWhatIsDrawn();
    void bmpWithoutDot();
    void jpegOfFixedRatio_data();
    void jpegOfFixedRatio();
    void gifIsWritten();
    void existingFileIsReplaced_data();
    void existingFileIsReplaced();
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

    void cancelWritesNothing();
    void cancelledFlagIsClearedByTheNextSave();
    void failureIsReportedAndIsNoCancel();
    void oldFileSurvivesFailure_data();
    void oldFileSurvivesFailure();
    void leftOverTemporaryStays();
    void folderAsTarget_data();
    void folderAsTarget();
    void writeProtectedFileIsKept_data();
    void writeProtectedFileIsKept();
    void folderWithoutPermission_data();
    void folderWithoutPermission();
    void emptyPictureIsReported();

    void usersTemporariesAreKept_data();
    void usersTemporariesAreKept();
    void usersTemporariesSurviveFailure_data();
    void usersTemporariesSurviveFailure();
    void targetNamedAsTheTemporary_data();
    void targetNamedAsTheTemporary();
    void targetNamedAsTheFileSetAside();

    void discardNeedsNoQuestionWhenUnchanged();
    void discardQuestion();
    void discardAnswers_data();
    void discardAnswers();
    void discardAfterSaving();
    void discardAfterSaveCancelled();
    void discardAfterFailedSave();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QStringList names() const { return namesIn(m_dir->path()); }
    void save(const QString& name, int row) {
        m_dialogs->chooseSave(path(name), row);
        m_save->mnuFileSave_Click();
    }
    void saveAtTypedRatio(const QString& name, const QString& ratio) {
        m_dialogs->type(ratio);
        save(name, JpegCustom);
    }
    /// The number in the one error message that came up, and that it is the right message.
    int reported() const {
        if (m_dialogs->messages.size() != 1)
            return -1;
        const QStringList lines = m_dialogs->messages.at(0).text.split("\r\n");
        return lines.at(0) == Complaint ? lines.at(1).section(' ', 0, 0).toInt() : -2;
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<WorkPicture> m_work;
    std::unique_ptr<FileSave> m_save;
    std::unique_ptr<QSignalSpy> m_label;
};

void FileSaveTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_work = std::make_unique<WorkPicture>(*m_dialogs);
    m_work->picDisp.setAutoSize(true);
    m_work->picDisp.setPicture(gradient(QSize(120, 90)));
    m_save = std::make_unique<FileSave>(*m_work, *m_dialogs);
    m_label = std::make_unique<QSignalSpy>(m_work.get(), &WorkPicture::fileNameShown);
}

void FileSaveTest::cleanup() {
    m_label.reset();
    m_save.reset();
    m_work.reset();
    m_dialogs.reset(); // tells of answers that nobody asked for while the test can still fail
}

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

void FileSaveTest::dialogProposesTheLastFile() {
    m_work->CurrentFileName = "/home/moi/fond.png";
    save("a.x", Bmp);
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    QCOMPARE(m_dialogs->saves.at(0).fileName, QString("/home/moi/fond.png"));
    QCOMPARE(m_dialogs->saves.at(1).fileName, path("a.x"));
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
    QVERIFY(loadPicture(path("photo.bmp")) == m_work->picDisp.Image());
    QVERIFY(!(m_work->picDisp.Image() == m_work->picDisp.Picture()));
    QCOMPARE(names(), QStringList("photo.bmp"));
}

void FileSaveTest::bmpWithoutDot() {
    save("photo", Bmp);
    QCOMPARE(names(), QStringList("bmp"));
    QVERIFY(loadPicture(path("bmp")) == m_work->picDisp.Image());
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
    QCOMPARE(loadPicture(path("a.jpg")).size(), QSize(120, 90));
    saveAtTypedRatio("typed.jpg", ratio);
    QCOMPARE(contentOf(path("a.jpg")), contentOf(path("typed.jpg")));
}

void FileSaveTest::gifIsWritten() {
    save("photo.png", Gif);
    QCOMPARE(names(), QStringList("photo.gif"));
    QCOMPARE(contentOf(path("photo.gif")).left(4), QByteArray("GIF8"));
    QCOMPARE(loadPicture(path("photo.gif")).size(), QSize(120, 90));
}

void FileSaveTest::existingFileIsReplaced_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::newRow("BMP") << int{Bmp} << "a.bmp";
    QTest::newRow("JPEG") << int{Jpeg80} << "a.jpg";
    QTest::newRow("GIF") << int{Gif} << "a.gif";
}

void FileSaveTest::existingFileIsReplaced() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path(name), QByteArray(300'000, 'x'));
    save(name, row);
    QCOMPARE(names(), QStringList(name));
    QCOMPARE(loadPicture(path(name)).size(), QSize(120, 90));
    QVERIFY(QFileInfo(path(name)).size() < 300'000);
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

void FileSaveTest::cancelWritesNothing() {
    m_work->CurrentFileName = "before";
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    QVERIFY(m_work->SaveCancelled);
    QCOMPARE(names(), QStringList());
    QCOMPARE(m_label->size(), 0);
    QCOMPARE(m_dialogs->messages.size(), 0);
    QCOMPARE(m_work->CurrentFileName, QString("before"));
}

void FileSaveTest::cancelledFlagIsClearedByTheNextSave() {
    m_work->SaveCancelled = true;
    save("a.bmp", Bmp);
    QVERIFY(!m_work->SaveCancelled);
}

void FileSaveTest::failureIsReportedAndIsNoCancel() {
    m_dialogs->answer(Answer::Ok);
    save("none/a.bmp", Bmp);
    QCOMPARE(reported(), error::PathNotFound);
    const MessageBox& box = m_dialogs->messages.at(0);
    QCOMPARE(box.text, QString("Erreur lors de l'enregistrement du fichier !\r\n76     ") +
                           RuntimeError::descriptionOf(error::PathNotFound));
    QCOMPARE(box.title, QString());
    QCOMPARE(box.buttons, Buttons::Ok);
    QCOMPARE(box.icon, Icon::None);
    QVERIFY(!m_work->SaveCancelled);
    QCOMPARE(m_work->CurrentFileName, path("none/a.bmp")); // set as soon as the dialog closes
    QCOMPARE(m_label->size(), 0);
}

void FileSaveTest::oldFileSurvivesFailure_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::oldFileSurvivesFailure() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path(name), "old");
    m_dialogs->answer(Answer::Ok);
    {
        const SmallDisk disk(1000);
        save(name, row);
    }
    QCOMPARE(reported(), error::DiskFull);
    QCOMPARE(contentOf(path(name)), QByteArray("old"));
    QCOMPARE(m_label->size(), 0);
}

void FileSaveTest::leftOverTemporaryStays() {
    m_work->picDisp.setPicture(Raster(QSize(70'000, 1), White)); // too wide for a JPEG
    m_dialogs->answer(Answer::Ok);
    save("a.jpg", Jpeg80);
    QCOMPARE(reported(), error::InvalidPropertyValue);
    QCOMPARE(names(), QStringList("Temp.bmp"));
}

void FileSaveTest::folderAsTarget_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::folderAsTarget() {
    QFETCH(int, row);
    QFETCH(QString, name);
    QVERIFY(QDir(m_dir->path()).mkdir(name));
    m_dialogs->answer(Answer::Ok);
    save(name, row);
    QCOMPARE(reported(), error::PathFileAccess);
    QVERIFY(QFileInfo(path(name)).isDir());
}

void FileSaveTest::writeProtectedFileIsKept_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::writeProtectedFileIsKept() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path(name), "old");
    allow(path(name), 0444);
    allow(m_dir->path(), 0777);
    m_dialogs->answer(Answer::Ok);
    {
        const Unprivileged nobody;
        save(name, row);
    }
    QCOMPARE(reported(), error::PermissionDenied);
    QCOMPARE(contentOf(path(name)), QByteArray("old"));
    QCOMPARE(names(), QStringList(name));
}

void FileSaveTest::folderWithoutPermission_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::folderWithoutPermission() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path("Temp.bmp"), "user's");
    allow(m_dir->path(), 0555);
    m_dialogs->answer(Answer::Ok);
    {
        const Unprivileged nobody;
        save(name, row);
    }
    allow(m_dir->path(), 0755);
    QCOMPARE(reported(), error::PermissionDenied);
    QCOMPARE(names(), QStringList("Temp.bmp"));
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's"));
}

void FileSaveTest::emptyPictureIsReported() {
    m_work->picDisp.setAutoSize(false);
    m_work->picDisp.setInnerSize(QSize(0, 0));
    m_dialogs->answer(Answer::Ok);
    save("a.bmp", Bmp);
    QCOMPARE(reported(), error::InvalidPropertyValue);
    QCOMPARE(names(), QStringList());
}

void FileSaveTest::usersTemporariesAreKept_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::usersTemporariesAreKept() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path("Temp.bmp"), "user's bmp");
    put(path("Temp.jpg"), "user's jpg");
    save(name, row);
    QStringList expected{name, "Temp.bmp", "Temp.jpg"};
    expected.sort();
    QCOMPARE(names(), expected);
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's bmp"));
    QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("user's jpg"));
    QCOMPARE(loadPicture(path(name)).size(), QSize(120, 90));
}

void FileSaveTest::usersTemporariesSurviveFailure_data() {
    existingFileIsReplaced_data();
}

void FileSaveTest::usersTemporariesSurviveFailure() {
    QFETCH(int, row);
    QFETCH(QString, name);
    put(path("Temp.bmp"), "user's bmp");
    put(path("Temp.jpg"), "user's jpg");
    // 32400 bytes of pixels fill the disk; a JPEG of a strip too wide for it fails one step later.
    for (const bool diskIsFull : {true, false}) {
        if (!diskIsFull)
            m_work->picDisp.setPicture(Raster(QSize(70'000, 1), White));
        m_dialogs->answer(Answer::Ok);
        {
            const SmallDisk disk(diskIsFull ? 1000 : RLIM_INFINITY);
            save(name, diskIsFull ? row : int{Jpeg80});
        }
        QCOMPARE(namesIn(m_dir->path()), QStringList({"Temp.bmp", "Temp.jpg"}));
        QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's bmp"));
        QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("user's jpg"));
    }
}

void FileSaveTest::targetNamedAsTheTemporary_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("bystander");
    QTest::newRow("Temp.bmp") << int{Bmp} << "Temp.bmp"
                              << "Temp.jpg";
    QTest::newRow("Temp.jpg") << int{Jpeg80} << "Temp.jpg"
                              << "Temp.bmp";
    QTest::newRow("Temp.gif") << int{Gif} << "Temp.gif"
                              << "Temp.bmp";
}

void FileSaveTest::targetNamedAsTheTemporary() {
    QFETCH(int, row);
    QFETCH(QString, name);
    QFETCH(QString, bystander);
    for (int round = 0; round < 2; ++round) { // the second time the file is there already
        put(path(bystander), "user's");
        save(name, row);
        QStringList expected{name, bystander};
        expected.sort();
        QCOMPARE(names(), expected);
        QCOMPARE(loadPicture(path(name)).size(), QSize(120, 90));
        QCOMPARE(contentOf(path(bystander)), QByteArray("user's"));
        QCOMPARE(m_label->last().at(0).toString(), path(name));
    }
}

void FileSaveTest::targetNamedAsTheFileSetAside() {
    put(path("Temp.jpg"), "user's");
    save("Temp (1).jpg", Jpeg80);
    QCOMPARE(names(), QStringList({"Temp (1).jpg", "Temp.jpg"}));
    QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("user's"));
    QCOMPARE(loadPicture(path("Temp (1).jpg")).size(), QSize(120, 90));
}

void FileSaveTest::discardNeedsNoQuestionWhenUnchanged() {
    QVERIFY(m_save->confirmDiscard("Enregistrer l'image ?"));
    QCOMPARE(m_dialogs->messages.size(), 0);
}

void FileSaveTest::discardQuestion() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::No);
    m_save->confirmDiscard("Enregistrer l'image ?");
    const MessageBox& box = m_dialogs->messages.at(0);
    QCOMPARE(box.text, QString("Enregistrer l'image ?"));
    QCOMPARE(box.title, QString("Image modifiée"));
    QCOMPARE(box.buttons, Buttons::YesNoCancel);
    QCOMPARE(box.icon, Icon::Question);
}

void FileSaveTest::discardAnswers_data() {
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<bool>("goOn");
    QTest::newRow("no") << Answer::No << true;
    QTest::newRow("cancel") << Answer::Cancel << false;
}

void FileSaveTest::discardAnswers() {
    QFETCH(Answer, answer);
    QFETCH(bool, goOn);
    m_work->ImageModified = true;
    m_dialogs->answer(answer);
    QCOMPARE(m_save->confirmDiscard("?"), goOn);
    QCOMPARE(m_dialogs->saves.size(), 0);
    QVERIFY(m_work->ImageModified);
}

void FileSaveTest::discardAfterSaving() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->chooseSave(path("a.bmp"), Bmp);
    QVERIFY(m_save->confirmDiscard("?"));
    QCOMPARE(names(), QStringList("a.bmp"));
}

void FileSaveTest::discardAfterSaveCancelled() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->cancelSave();
    QVERIFY(!m_save->confirmDiscard("?"));
}

// A failed save is no cancel: the picture is given up all the same.
void FileSaveTest::discardAfterFailedSave() {
    m_work->ImageModified = true;
    m_dialogs->answer(Answer::Yes);
    m_dialogs->answer(Answer::Ok);
    m_dialogs->chooseSave(path("none/a.bmp"), Bmp);
    QVERIFY(m_save->confirmDiscard("?"));
    QCOMPARE(m_dialogs->messages.size(), 2);
}

QTEST_MAIN(FileSaveTest)
#include "tst_filesave.moc"
