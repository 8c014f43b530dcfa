#include "document/bmpfile.h"
#include "document/filetools.h"
#include "document/picturereader.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <sys/mount.h>

using namespace ovrano;

class BmpFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void headerIsWhatEveryProgramReads_data();
    void headerIsWhatEveryProgramReads();
    void rowsLieBottomUpAndAreFilledToFourBytes();
    void whatIsSavedIsLoadedBitExactly_data();
    void whatIsSavedIsLoadedBitExactly();
    void onlyTheFileItselfAppears();
    void replacesAnOldFile();
    void emptyPictureIsReported();
    void pictureBeyondTheFormatIsReported();
    void missingFolder();
    void fileAsFolder();
    void folderAsTarget();
    void pipeAsTarget();
    void folderWithoutPermission();
    void writeProtectedFile();
    void fullDiskLeavesTheOldFile_data();
    void fullDiskLeavesTheOldFile();
    void fullFileSystem();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void BmpFileTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void BmpFileTest::headerIsWhatEveryProgramReads_data() {
    QTest::addColumn<int>("at");
    QTest::addColumn<quint32>("value"); // the 16-bit fields are looked at in pairs
    QTest::newRow("length of the file") << 2 << 54U + 16 * 3;
    QTest::newRow("reserved") << 6 << 0U;
    QTest::newRow("start of the pixels") << 10 << 54U;
    QTest::newRow("length of the second header") << 14 << 40U;
    QTest::newRow("width") << 18 << 5U;
    QTest::newRow("height") << 22 << 3U;
    QTest::newRow("1 plane, 24 bits a pixel") << 26 << 0x0018'0001U;
    QTest::newRow("not compressed") << 30 << 0U;
    QTest::newRow("length of the pixels") << 34 << 16U * 3;
    QTest::newRow("dots per metre across: 96 per inch") << 38 << 3780U;
    QTest::newRow("dots per metre down") << 42 << 3780U;
    QTest::newRow("colours of a palette") << 46 << 0U;
    QTest::newRow("important ones") << 50 << 0U;
}

void BmpFileTest::headerIsWhatEveryProgramReads() {
    QFETCH(int, at);
    QFETCH(quint32, value);
    SavePicture(patterned(QSize(5, 3)), path("a.bmp"));
    const QByteArray content = contentOf(path("a.bmp"));
    QCOMPARE(content.size(), 54 + 16 * 3);
    QCOMPARE(content.left(2), QByteArray("BM"));
    QCOMPARE(qFromLittleEndian<quint32>(content.constData() + at), value);
}

void BmpFileTest::rowsLieBottomUpAndAreFilledToFourBytes() {
    Raster picture(QSize(2, 2), White);
    picture.setPixel(0, 0, rgb(1, 2, 3));
    picture.setPixel(1, 0, rgb(4, 5, 6));
    picture.setPixel(0, 1, rgb(7, 8, 9));
    picture.setPixel(1, 1, rgb(10, 11, 12));
    SavePicture(picture, path("a.bmp"));
    QCOMPARE(contentOf(path("a.bmp")).mid(54), QByteArray("\x09\x08\x07\x0C\x0B\x0A\0\0"
                                                          "\x03\x02\x01\x06\x05\x04\0\0",
                                                          16));
}

void BmpFileTest::whatIsSavedIsLoadedBitExactly_data() {
    QTest::addColumn<QSize>("size");
    for (const QSize size :
         {QSize(1, 1), QSize(2, 7), QSize(3, 5), QSize(4, 4), QSize(5, 1), QSize(6, 2), QSize(7, 9),
          QSize(255, 257), QSize(300, 513), QSize(1000, 700), QSize(100'000, 3), QSize(2, 100'000)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void BmpFileTest::whatIsSavedIsLoadedBitExactly() {
    QFETCH(QSize, size);
    const Raster picture = patterned(size);
    SavePicture(picture, path("a.bmp"));
    QVERIFY(LoadPicture(path("a.bmp")) == picture);
}

void BmpFileTest::onlyTheFileItselfAppears() {
    SavePicture(patterned(QSize(30, 20)), path("a.bmp"));
    QCOMPARE(namesIn(m_dir->path()), QStringList("a.bmp"));
}

void BmpFileTest::replacesAnOldFile() {
    put(path("a.bmp"), QByteArray(100'000, 'x')); // longer than the new one
    const Raster picture = patterned(QSize(30, 20));
    SavePicture(picture, path("a.bmp"));
    QVERIFY(LoadPicture(path("a.bmp")) == picture);
    QCOMPARE(QFileInfo(path("a.bmp")).size(), 54 + 92 * 20);
}

void BmpFileTest::emptyPictureIsReported() {
    put(path("a.bmp"), "old");
    for (const QSize size : {QSize(0, 0), QSize(0, 5), QSize(5, 0)})
        QCOMPARE(errorOf([&] { SavePicture(Raster(size, White), path("a.bmp")); }),
                 error::InvalidPropertyValue);
    QCOMPARE(contentOf(path("a.bmp")), QByteArray("old"));
}

void BmpFileTest::pictureBeyondTheFormatIsReported() {
    const Raster sixGigabytes(QSize(Raster::MaxSide, 2000), White);
    QCOMPARE(errorOf([&] { SavePicture(sixGigabytes, path("a.bmp")); }), error::InvalidPropertyValue);
    QCOMPARE(namesIn(m_dir->path()), QStringList());
}

void BmpFileTest::missingFolder() {
    QCOMPARE(errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("none/a.bmp")); }), error::PathNotFound);
}

void BmpFileTest::fileAsFolder() {
    put(path("file"), "x");
    QCOMPARE(errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("file/a.bmp")); }), error::PathNotFound);
}

void BmpFileTest::folderAsTarget() {
    QVERIFY(QDir(m_dir->path()).mkdir("a.bmp"));
    QCOMPARE(errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("a.bmp")); }), error::PathFileAccess);
}

void BmpFileTest::pipeAsTarget() {
    QCOMPARE(mkfifo(qPrintable(path("a.bmp")), 0600), 0);
    QCOMPARE(errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("a.bmp")); }), error::PathFileAccess);
    QVERIFY(!QFileInfo(path("a.bmp")).isFile());
}

void BmpFileTest::folderWithoutPermission() {
    allow(m_dir->path(), 0555);
    int number = 0;
    {
        const Unprivileged nobody;
        number = errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("a.bmp")); });
    }
    allow(m_dir->path(), 0755);
    QCOMPARE(number, error::PermissionDenied);
}

void BmpFileTest::writeProtectedFile() {
    put(path("a.bmp"), "old");
    allow(path("a.bmp"), 0444);
    allow(m_dir->path(), 0777);
    int number = 0;
    {
        const Unprivileged nobody;
        number = errorOf([&] { SavePicture(patterned(QSize(3, 3)), path("a.bmp")); });
    }
    QCOMPARE(number, error::PermissionDenied);
    QCOMPARE(contentOf(path("a.bmp")), QByteArray("old"));
}

void BmpFileTest::fullDiskLeavesTheOldFile_data() {
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("room");
    QTest::newRow("nothing fits") << 300 << 0;
    QTest::newRow("the header fits") << 300 << 60;
    QTest::newRow("all but the end fits") << 300 << 54 + 900 * 300 - 1;
    QTest::newRow("all but the end of what is written at once fits") << 100 << 54 + 900 * 100 - 1;
}

void BmpFileTest::fullDiskLeavesTheOldFile() {
    QFETCH(int, height);
    QFETCH(int, room);
    put(path("a.bmp"), "old");
    int number = 0;
    {
        const SmallDisk disk(static_cast<rlim_t>(room));
        number = errorOf([&] { SavePicture(patterned(QSize(300, height)), path("a.bmp")); });
    }
    QCOMPARE(number, error::DiskFull);
    QCOMPARE(contentOf(path("a.bmp")), QByteArray("old"));
    QCOMPARE(namesIn(m_dir->path()), QStringList("a.bmp"));
}

void BmpFileTest::fullFileSystem() {
    const QByteArray folder = path("disk").toUtf8();
    QVERIFY(QDir(m_dir->path()).mkdir("disk"));
    if (mount("tmpfs", folder.constData(), "tmpfs", 0, "size=64k") != 0)
        QSKIP("a small file system can only be mounted by the system's administrator");
    const int number = errorOf([&] { SavePicture(patterned(QSize(300, 300)), path("disk/a.bmp")); });
    const QStringList left = namesIn(path("disk"));
    umount(folder.constData());
    QCOMPARE(number, error::DiskFull);
    QCOMPARE(left, QStringList());
}

OVRANO_TEST(BmpFileTest)
#include "tst_bmpfile.moc"
