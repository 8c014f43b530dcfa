#include "document/picturereader.h"
#include "document/savetest.h"
#include "support/testprogram.h"

using namespace ovrano;

/// Saving that is cancelled or fails, and what becomes of files that were there before.
class SaveFailuresTest : public SaveTest {
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

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
};

void SaveFailuresTest::cancelWritesNothing() {
    m_work->CurrentFileName = "before";
    m_dialogs->cancelSave();
    m_save->mnuFileSave_Click();
    QVERIFY(m_work->SaveCancelled);
    QCOMPARE(names(), QStringList());
    QCOMPARE(m_label->size(), 0);
    QCOMPARE(m_dialogs->messages.size(), 0);
    QCOMPARE(m_work->CurrentFileName, QString("before"));
}

void SaveFailuresTest::cancelledFlagIsClearedByTheNextSave() {
    m_work->SaveCancelled = true;
    save("a.bmp", Bmp);
    QVERIFY(!m_work->SaveCancelled);
}

void SaveFailuresTest::failureIsReportedAndIsNoCancel() {
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

void SaveFailuresTest::oldFileSurvivesFailure_data() {
    everyFormat();
}

void SaveFailuresTest::oldFileSurvivesFailure() {
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

void SaveFailuresTest::leftOverTemporaryStays() {
    m_work->picDisp.setPicture(Raster(QSize(70'000, 1), White)); // too wide for a JPEG
    m_dialogs->answer(Answer::Ok);
    save("a.jpg", Jpeg80);
    QCOMPARE(reported(), error::InvalidPropertyValue);
    QCOMPARE(names(), QStringList("Temp.bmp"));
}

void SaveFailuresTest::folderAsTarget_data() {
    everyFormat();
}

void SaveFailuresTest::folderAsTarget() {
    QFETCH(int, row);
    QFETCH(QString, name);
    QVERIFY(QDir(m_dir->path()).mkdir(name));
    m_dialogs->answer(Answer::Ok);
    save(name, row);
    QCOMPARE(reported(), error::PathFileAccess);
    QVERIFY(QFileInfo(path(name)).isDir());
}

void SaveFailuresTest::writeProtectedFileIsKept_data() {
    everyFormat();
}

void SaveFailuresTest::writeProtectedFileIsKept() {
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

void SaveFailuresTest::folderWithoutPermission_data() {
    everyFormat();
}

void SaveFailuresTest::folderWithoutPermission() {
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

void SaveFailuresTest::emptyPictureIsReported() {
    m_work->picDisp.setAutoSize(false);
    m_work->picDisp.setInnerSize(QSize(0, 0));
    m_dialogs->answer(Answer::Ok);
    save("a.bmp", Bmp);
    QCOMPARE(reported(), error::InvalidPropertyValue);
    QCOMPARE(names(), QStringList());
}

void SaveFailuresTest::usersTemporariesAreKept_data() {
    everyFormat();
}

void SaveFailuresTest::usersTemporariesAreKept() {
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
    QCOMPARE(LoadPicture(path(name)).size(), QSize(120, 90));
}

void SaveFailuresTest::usersTemporariesSurviveFailure_data() {
    everyFormat();
}

void SaveFailuresTest::usersTemporariesSurviveFailure() {
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

void SaveFailuresTest::targetNamedAsTheTemporary_data() {
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

void SaveFailuresTest::targetNamedAsTheTemporary() {
    QFETCH(int, row);
    QFETCH(QString, name);
    QFETCH(QString, bystander);
    for (int round = 0; round < 2; ++round) { // the second time the file is there already
        put(path(bystander), "user's");
        save(name, row);
        QStringList expected{name, bystander};
        expected.sort();
        QCOMPARE(names(), expected);
        QCOMPARE(LoadPicture(path(name)).size(), QSize(120, 90));
        QCOMPARE(contentOf(path(bystander)), QByteArray("user's"));
        QCOMPARE(m_label->last().at(0).toString(), path(name));
    }
}

void SaveFailuresTest::targetNamedAsTheFileSetAside() {
    put(path("Temp.jpg"), "user's");
    save("Temp (1).jpg", Jpeg80);
    QCOMPARE(names(), QStringList({"Temp (1).jpg", "Temp.jpg"}));
    QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("user's"));
    QCOMPARE(LoadPicture(path("Temp (1).jpg")).size(), QSize(120, 90));
}

OVRANO_TEST(SaveFailuresTest)
#include "tst_savefailures.moc"
