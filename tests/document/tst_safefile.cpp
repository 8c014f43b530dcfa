#include "document/filetools.h"
#include "document/safefile.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

class SafeFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void takesItsNameWhenCommitted();
    void oldFileStaysUntilThen();
    void withoutCommitNothingRemains();
    void linkIsFollowed();
    void linkThatLeadsNowhereIsReplaced();
    void permissionsOfTheOldFileAreKept();
    void newFileHasOrdinaryPermissions();
    void longestNameIsPossible();
    void nameTooLong();
    void relativePath();
    void targetThatBecomesAFolder();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }
    QStringList names() const { return namesIn(m_dir->path()); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

void write(const QString& path, const QByteArray& content) {
    SafeFile file(path);
    file.write(content.constData(), static_cast<std::size_t>(content.size()));
    file.commit();
}

mode_t modeOf(const QString& path) {
    struct stat status = {};
    stat(qPrintable(path), &status);
    return status.st_mode & 0777U;
}

} // namespace

void SafeFileTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void SafeFileTest::takesItsNameWhenCommitted() {
    SafeFile file(path("a"));
    file.write("content", 7);
    QVERIFY(!QFileInfo::exists(path("a")));
    file.commit();
    QCOMPARE(contentOf(path("a")), QByteArray("content"));
    QCOMPARE(names(), QStringList("a"));
}

void SafeFileTest::oldFileStaysUntilThen() {
    put(path("a"), "old");
    SafeFile file(path("a"));
    const QByteArray large(3'000'000, 'x');
    file.write(large.constData(), static_cast<std::size_t>(large.size()));
    QCOMPARE(contentOf(path("a")), QByteArray("old"));
    file.commit();
    QCOMPARE(contentOf(path("a")), large);
}

void SafeFileTest::withoutCommitNothingRemains() {
    put(path("a"), "old");
    {
        SafeFile file(path("a"));
        file.write("content", 7);
        QCOMPARE(names().size(), 2);
    }
    QCOMPARE(names(), QStringList("a"));
    QCOMPARE(contentOf(path("a")), QByteArray("old"));
}

void SafeFileTest::linkIsFollowed() {
    QVERIFY(QDir(m_dir->path()).mkdir("else"));
    put(path("else/file"), "old");
    QVERIFY(QFile::link(path("else/file"), path("a")));
    write(path("a"), "content");
    QCOMPARE(QFile::symLinkTarget(path("a")), path("else/file"));
    QCOMPARE(contentOf(path("else/file")), QByteArray("content"));
}

void SafeFileTest::linkThatLeadsNowhereIsReplaced() {
    QVERIFY(QFile::link(path("gone"), path("a")));
    write(path("a"), "content");
    QCOMPARE(contentOf(path("a")), QByteArray("content"));
    QCOMPARE(names(), QStringList("a"));
}

void SafeFileTest::permissionsOfTheOldFileAreKept() {
    put(path("a"), "old");
    allow(path("a"), 0640);
    write(path("a"), "content");
    QCOMPARE(modeOf(path("a")), mode_t{0640});
}

void SafeFileTest::newFileHasOrdinaryPermissions() {
    const mode_t before = umask(0027);
    write(path("a"), "content");
    umask(before);
    QCOMPARE(modeOf(path("a")), mode_t{0640});
}

void SafeFileTest::longestNameIsPossible() {
    const QString name(255, 'x');
    write(path(name), "content");
    QCOMPARE(contentOf(path(name)), QByteArray("content"));
}

void SafeFileTest::nameTooLong() {
    const QString name(256, 'x');
    QCOMPARE(errorOf([&] { write(path(name), "content"); }), error::BadFileName);
    QCOMPARE(names(), QStringList());
}

void SafeFileTest::relativePath() {
    const QString before = QDir::currentPath();
    QDir::setCurrent(m_dir->path());
    const int number = errorOf([] { write("a", "content"); });
    QDir::setCurrent(before);
    QCOMPARE(number, 0);
    QCOMPARE(contentOf(path("a")), QByteArray("content"));
}

void SafeFileTest::targetThatBecomesAFolder() {
    {
        SafeFile file(path("a"));
        file.write("content", 7);
        QVERIFY(QDir(m_dir->path()).mkdir("a"));
        QCOMPARE(errorOf([&] { file.commit(); }), error::PathFileAccess);
    }
    QCOMPARE(names(), QStringList("a"));
    QVERIFY(QFileInfo(path("a")).isDir());
}

OVRANO_TEST(SafeFileTest)
#include "tst_safefile.moc"
