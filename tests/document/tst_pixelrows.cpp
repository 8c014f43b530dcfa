#include "document/bmpfile.h"
#include "document/bmprows.h"
#include "document/filetools.h"
#include "document/imagerows.h"
#include "platform/parallel.h"
#include "support/testprogram.h"

#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <vector>

using namespace ovrano;

class PixelRowsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyRowOnce_data();
    void everyRowOnce();
    void readersDoNotDisturbEachOther();
    void aReaderKeepsTheFile();
    void letsTheWindowRepaintMeanwhile();
    void aFileThatShrinksIsTold();

private:
    QString path() const { return m_dir.filePath("a.bmp"); }

    QTemporaryDir m_dir;
};

namespace {

enum class From { Memory, File };

std::unique_ptr<PixelRows> rowsOf(const Raster& picture, From from, const QString& path) {
    if (from == From::Memory)
        return std::make_unique<ImageRows>(picture.toImage());
    SavePicture(picture, path);
    return std::make_unique<BmpRows>(path);
}

bool isRow(const Raster& picture, int y, const QRgb* row) {
    std::vector<QRgb> expected(static_cast<std::size_t>(picture.width()));
    picture.readRow(y, 0, picture.width(), expected.data());
    return std::equal(expected.begin(), expected.end(), row);
}

} // namespace

void PixelRowsTest::initTestCase() {
    QVERIFY(m_dir.isValid());
    helperThreads().setMaxThreadCount(4); // whatever machine this is
}

void PixelRowsTest::everyRowOnce_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("from");
    for (const QSize size :
         {QSize(1, 1), QSize(3, 2), QSize(1, 140'000), QSize(400, 1000), QSize(70'000, 40)})
        for (const From from : {From::Memory, From::File})
            QTest::addRow("%d x %d from %s", size.width(), size.height(),
                          from == From::Memory ? "memory" : "a file")
                << size << static_cast<int>(from);
}

void PixelRowsTest::everyRowOnce() {
    QFETCH(QSize, size);
    QFETCH(int, from);
    const Raster picture = patterned(size);
    const auto rows = rowsOf(picture, static_cast<From>(from), path());
    std::vector<std::atomic<int>> times(static_cast<std::size_t>(size.height()));
    std::atomic<int> wrong = 0;
    forEachRowInParallel(*rows, [&](int worker, int y, const QRgb* row) {
        ++times.at(static_cast<std::size_t>(y));
        if (worker < 0 || worker >= mostWorkers() || !isRow(picture, y, row))
            ++wrong;
    });
    for (const std::atomic<int>& count : times)
        QCOMPARE(count.load(), 1);
    QCOMPARE(wrong.load(), 0);
}

void PixelRowsTest::readersDoNotDisturbEachOther() {
    const Raster picture = patterned(QSize(400, 1000));
    for (const From from : {From::Memory, From::File}) {
        const auto rows = rowsOf(picture, from, path());
        const auto other = rows->anotherReader();
        QCOMPARE(other->size(), rows->size());
        const QRgb* first = rows->row(10);
        const QRgb* second = other->row(990);
        QVERIFY(isRow(picture, 10, first));
        QVERIFY(isRow(picture, 990, second));
    }
}

void PixelRowsTest::aReaderKeepsTheFile() {
    const Raster picture = patterned(QSize(40, 30));
    auto rows = rowsOf(picture, From::File, path());
    const auto other = rows->anotherReader();
    rows.reset();
    QVERIFY(QFile::remove(path()));
    QVERIFY(isRow(picture, 29, other->row(29)));
}

void PixelRowsTest::letsTheWindowRepaintMeanwhile() {
    // So wide that each row is a band of its own.
    ImageRows rows(patterned(QSize(70'000, 70)).toImage());
    const int before = EventYield::count();
    forEachRowInParallel(rows, [](int, int, const QRgb*) { QThread::msleep(3); });
    QVERIFY(EventYield::count() > before);
}

void PixelRowsTest::aFileThatShrinksIsTold() {
    const auto rows = rowsOf(patterned(QSize(400, 1000)), From::File, path());
    QVERIFY(QFile::resize(path(), 100'000));
    QCOMPARE(errorOf([&] { forEachRowInParallel(*rows, [](int, int, const QRgb*) {}); }), error::DeviceIo);
}

OVRANO_TEST(PixelRowsTest)
#include "tst_pixelrows.moc"
