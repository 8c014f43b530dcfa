#include "document/filetools.h"
#include "document/setaside.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace ovrano;

class SetAsideTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingThere();
    void fileComesBack();
    void temporaryThatIsLeftGivesWay();
    void nameInUseIsNotTaken();
    void nameOfTheTargetIsNotTaken();
    void targetItselfStays();
    void folderComesBack();
    void linkThatLeadsNowhereComesBack();
    void folderWithoutPermission();
    void severalAtOnce();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QStringList names() const { return namesIn(m_dir->path()); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void SetAsideTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void SetAsideTest::nothingThere() {
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        put(path("Temp.bmp"), "ours");
    }
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("ours")); // stays: nobody needs its name
}

void SetAsideTest::fileComesBack() {
    put(path("Temp.bmp"), "user's");
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        QCOMPARE(names(), QStringList("Temp (1).bmp"));
        QCOMPARE(contentOf(path("Temp (1).bmp")), QByteArray("user's"));
    }
    QCOMPARE(names(), QStringList("Temp.bmp"));
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's"));
}

void SetAsideTest::temporaryThatIsLeftGivesWay() {
    put(path("Temp.bmp"), "user's");
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        put(path("Temp.bmp"), "ours");
    }
    QCOMPARE(names(), QStringList("Temp.bmp"));
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's"));
}

void SetAsideTest::nameInUseIsNotTaken() {
    put(path("Temp.bmp"), "user's");
    put(path("Temp (1).bmp"), "another");
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        QCOMPARE(names(), QStringList({"Temp (1).bmp", "Temp (2).bmp"}));
    }
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("user's"));
    QCOMPARE(contentOf(path("Temp (1).bmp")), QByteArray("another"));
}

void SetAsideTest::nameOfTheTargetIsNotTaken() {
    for (const char* target : {"Temp (1).jpg", "TEMP (1).JPG"}) {
        put(path("Temp.jpg"), "user's");
        {
            const SetAside kept(path("Temp.jpg"), path(target));
            put(path(target), "result");
        }
        QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("user's"));
        QCOMPARE(contentOf(path(target)), QByteArray("result"));
    }
}

void SetAsideTest::targetItselfStays() {
    put(path("Temp.jpg"), "old");
    {
        const SetAside kept(path("Temp.jpg"), path("Temp.jpg"));
        QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("old"));
        put(path("Temp.jpg"), "result");
    }
    QCOMPARE(names(), QStringList("Temp.jpg"));
    QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("result"));
}

void SetAsideTest::folderComesBack() {
    QVERIFY(QDir(m_dir->path()).mkpath("Temp.bmp/inside"));
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        put(path("Temp.bmp"), "ours");
    }
    QVERIFY(QFileInfo(path("Temp.bmp/inside")).isDir());
}

void SetAsideTest::linkThatLeadsNowhereComesBack() {
    QVERIFY(QFile::link(path("gone"), path("Temp.bmp")));
    {
        const SetAside kept(path("Temp.bmp"), path("a.jpg"));
        QVERIFY(!QFileInfo(path("Temp.bmp")).isSymLink());
    }
    QCOMPARE(QFile::symLinkTarget(path("Temp.bmp")), path("gone"));
}

void SetAsideTest::folderWithoutPermission() {
    put(path("Temp.bmp"), "user's");
    allow(m_dir->path(), 0555);
    int number = 0;
    {
        const Unprivileged nobody;
        number = errorOf([&] { SetAside(path("Temp.bmp"), path("a.jpg")); });
    }
    allow(m_dir->path(), 0755);
    QCOMPARE(number, error::PermissionDenied);
    QCOMPARE(names(), QStringList("Temp.bmp"));
}

void SetAsideTest::severalAtOnce() {
    put(path("Temp.bmp"), "b");
    put(path("Temp.jpg"), "j");
    {
        const SetAside keptBmp(path("Temp.bmp"), path("a.jpg"));
        const SetAside keptJpg(path("Temp.jpg"), path("a.jpg"));
        QCOMPARE(names(), QStringList({"Temp (1).bmp", "Temp (1).jpg"}));
    }
    QCOMPARE(contentOf(path("Temp.bmp")), QByteArray("b"));
    QCOMPARE(contentOf(path("Temp.jpg")), QByteArray("j"));
}

OVRANO_TEST(SetAsideTest)
#include "tst_setaside.moc"
