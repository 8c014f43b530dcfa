#include "document/bmpfile.h"
#include "document/bmprows.h"
#include "document/filetools.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>

using namespace ovrano;

class BmpRowsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void givesEveryRow_data();
    void givesEveryRow();
    void rowsComeInAnyOrder();
    void otherFilesAreRefused_data();
    void otherFilesAreRefused();
    void missingFile();
    void fileThatShrinksMeanwhile();

private:
    QString path(const QString& name) const { return m_dir->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

namespace {

QList<QRgb> rowOf(const Raster& picture, int y) {
    QList<QRgb> row(picture.width());
    picture.readRow(y, 0, picture.width(), row.data());
    return row;
}

QList<QRgb> rowOf(BmpRows& rows, int y) {
    const QRgb* first = rows.row(y);
    return QList<QRgb>(first, first + rows.size().width());
}

} // namespace

void BmpRowsTest::init() {
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void BmpRowsTest::givesEveryRow_data() {
    QTest::addColumn<QSize>("size");
    for (const QSize size : {QSize(1, 1), QSize(2, 3), QSize(3, 2), QSize(401, 700), QSize(100'000, 5)})
        QTest::addRow("%d x %d", size.width(), size.height()) << size;
}

void BmpRowsTest::givesEveryRow() {
    QFETCH(QSize, size);
    const Raster picture = patterned(size);
    SavePicture(picture, path("a.bmp"));
    BmpRows rows(path("a.bmp"));
    QCOMPARE(rows.size(), size);
    for (int y = 0; y < size.height(); ++y)
        QCOMPARE(rowOf(rows, y), rowOf(picture, y));
}

void BmpRowsTest::rowsComeInAnyOrder() {
    const Raster picture = patterned(QSize(401, 700));
    SavePicture(picture, path("a.bmp"));
    BmpRows rows(path("a.bmp"));
    for (const int y : {699, 0, 350, 349, 351, 698, 1, 350})
        QCOMPARE(rowOf(rows, y), rowOf(picture, y));
}

void BmpRowsTest::otherFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("content");
    const QImage picture = patterned(QSize(40, 30)).toImage();
    const QByteArray bmp = encoded(picture, "bmp");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray(200, 'x');
    QTest::newRow("JPEG") << encoded(picture, "jpg");
    QTest::newRow("8 bits") << encoded(picture.convertToFormat(QImage::Format_Indexed8), "bmp");
    QTest::newRow("header only") << bmp.left(54);
    QTest::newRow("a byte missing") << bmp.chopped(1);
    QByteArray upsideDown = bmp;
    upsideDown.replace(22, 4, QByteArray("\xE2\xFF\xFF\xFF", 4)); // −30 rows
    QTest::newRow("from the top down") << upsideDown;
    QByteArray noWidth = bmp;
    noWidth.replace(18, 4, QByteArray(4, '\0'));
    QTest::newRow("no width") << noWidth;
}

void BmpRowsTest::otherFilesAreRefused() {
    QFETCH(QByteArray, content);
    put(path("a.bmp"), content);
    QCOMPARE(errorOf([&] { BmpRows(path("a.bmp")); }), error::InvalidPicture);
}

void BmpRowsTest::missingFile() {
    QCOMPARE(errorOf([&] { BmpRows(path("none.bmp")); }), error::FileNotFound);
    QCOMPARE(errorOf([&] { BmpRows(path("none/a.bmp")); }), error::PathNotFound);
}

void BmpRowsTest::fileThatShrinksMeanwhile() {
    SavePicture(patterned(QSize(400, 700)), path("a.bmp"));
    BmpRows rows(path("a.bmp"));
    rows.row(0);
    QVERIFY(QFile::resize(path("a.bmp"), 54));
    QCOMPARE(errorOf([&] { rows.row(699); }), error::DeviceIo);
    QCOMPARE(errorOf([&] { rows.row(0); }), error::DeviceIo); // it was overwritten
}

OVRANO_TEST(BmpRowsTest)
#include "tst_bmprows.moc"
