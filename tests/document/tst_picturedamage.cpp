#include "document/decoderlog.h"
#include "document/filetools.h"
#include "document/giftools.h"
#include "document/picturereader.h"
#include "support/processortime.h"
#include "support/testprogram.h"

#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>

#include <thread>

using namespace ovrano;

namespace {

void put16(QByteArray& bytes, qsizetype at, int value) {
    qToBigEndian(static_cast<quint16>(value), bytes.data() + at);
}

/// Files of a few dozen bytes that announce a picture of this size.
QByteArray tinyBmp(int side) {
    QByteArray bytes = encoded(patterned(QSize(4, 4)), "bmp");
    qToLittleEndian(qint32{side}, bytes.data() + 18);
    qToLittleEndian(qint32{side}, bytes.data() + 22);
    return bytes;
}

/// Run-length coded: 0 1 is "end of picture" and makes any size complete.
QByteArray tinyRunLengthBmp(int side, const QByteArray& runs) {
    QByteArray bytes("BM", 2);
    bytes.resize(62, '\0');
    const auto put32 = [&](int at, int value) { qToLittleEndian(qint32{value}, bytes.data() + at); };
    put32(10, 62);
    put32(14, 40);
    put32(18, side);
    put32(22, side);
    bytes[26] = 1;
    bytes[28] = 8; // bits a pixel
    bytes[30] = 1; // run lengths of bytes
    put32(46, 2);  // colours
    put32(54, 0x00FF0000);
    put32(58, 0x000000FF);
    return bytes + runs;
}

QByteArray tinyGif(int side) {
    QByteArray bytes = gif(QSize(4, 4), {{QRect(0, 0, 4, 4), 1}});
    constexpr int Screen = 6;
    constexpr int Frame = 13 + 4 * 3 + 8 + 5; // behind the colours and the frame's extension
    for (const int at : {Screen, Screen + 2, Frame, Frame + 2})
        qToLittleEndian(static_cast<quint16>(side), bytes.data() + at);
    return bytes;
}

QByteArray tinyJpeg(int side) {
    QByteArray bytes = encoded(gradient(QSize(8, 8)), "jpg");
    const qsizetype frame = bytes.indexOf("\xFF\xC0");
    put16(bytes, frame + 5, side);
    put16(bytes, frame + 7, side);
    return bytes;
}

/// The most memory that the process has had so far, in bytes.
qint64 peakMemory() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return qint64{usage.ru_maxrss} * 1024;
}

Raster decodedOr(const QByteArray& content, const Raster& otherwise) {
    try {
        return decodePicture(content);
    } catch (const RuntimeError&) {
        return otherwise;
    }
}

} // namespace

/// What is cut off, damaged or made up: refused, or at least the same picture each time.
class PictureDamageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void notAPicture_data();
    void notAPicture();
    void cutOff_data();
    void cutOff();
    void jpegCutBeforeItsEndMark();
    void logIsLeftToOthers();
    void whatFollowsThePictureDoesNotMatter_data();
    void whatFollowsThePictureDoesNotMatter();
    void pictureBeyondTheLimit();
    void announcedSizeIsNotBelieved_data();
    void announcedSizeIsNotBelieved();
    void leftOutPixelsHaveTheFirstColour();
    void damagedFilesGiveTheSameEachTime_data();
    void damagedFilesGiveTheSameEachTime();
    void randomBytes();
};

void PictureDamageTest::notAPicture_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("B");
    QTest::newRow("text") << QByteArray("Ceci n'est pas une image.\n");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("only BM") << QByteArray("BM");
    QTest::newRow("only GIF") << QByteArray("GIF89a");
    QTest::newRow("only JPEG") << QByteArray("\xFF\xD8\xFF");
    QTest::newRow("JPEG without picture") << QByteArray("\xFF\xD8\xFF\xD9");
    QTest::newRow("GIF without picture") << gif(QSize(5, 5), {});
    QTest::newRow("drawing") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
    QTest::newRow("no width") << tinyBmp(0);
}

void PictureDamageTest::notAPicture() {
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    const QString file = put(folder.filePath("a.bmp"), content);
    QCOMPARE(errorOf([&] { LoadPicture(file); }), error::InvalidPicture);
    QCOMPARE(errorOf([&] { decodePicture(content); }), error::InvalidPicture);
}

void PictureDamageTest::cutOff_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("spare"); // bytes at the end that nobody needs
    const QImage picture = patterned(QSize(40, 30)).toImage();
    const QByteArray runs("\x04\x01\0\x03\1\0\1\0\0\x02\1\1\0\1", 14);
    QTest::newRow("BMP") << encoded(picture, "bmp") << 0;
    QTest::newRow("BMP with a palette")
        << encoded(picture.convertToFormat(QImage::Format_Indexed8), "bmp") << 0;
    QTest::newRow("BMP of runs") << tinyRunLengthBmp(8, runs) << 0;
    QTest::newRow("GIF") << gif(QSize(40, 30), {{QRect(0, 0, 40, 30), 1}}) << 1;
    QTest::newRow("JPEG") << encoded(picture, "jpg") << 0;
}

// Whatever is missing, be it the last byte: an error, never a picture with a made-up part.
void PictureDamageTest::cutOff() {
    QFETCH(QByteArray, content);
    QFETCH(int, spare);
    QCOMPARE(errorOf([&] { decodePicture(content); }), 0);
    QCOMPARE(errorOf([&] { decodePicture(content.chopped(spare)); }), 0);
    for (qsizetype length = 0; length < content.size() - spare; ++length)
        QCOMPARE(errorOf([&] { decodePicture(content.left(length)); }), error::InvalidPicture);
}

// The decoder makes up what is missing when there is an end mark again.
void PictureDamageTest::jpegCutBeforeItsEndMark() {
    const QByteArray end("\xFF\xD9");
    const QByteArray whole = encoded(patterned(QSize(40, 30)).toImage(), "jpg");
    QVERIFY(whole.endsWith(end));
    for (qsizetype length = 0; length < whole.size() - end.size(); ++length)
        QCOMPARE(errorOf([&] { decodePicture(whole.left(length) + end); }), error::InvalidPicture);
}

// What a decoder writes to the log is kept from there, and nothing else.
void PictureDamageTest::logIsLeftToOthers() {
    static QStringList heard;
    heard.clear();
    const QtMessageHandler listener = [](QtMsgType, const QMessageLogContext&, const QString& text) {
        heard.append(text);
    };
    const QtMessageHandler before = qInstallMessageHandler(listener);
    {
        const DecoderLog outer;
        const DecoderLog inner;
        qWarning("a word");
        std::thread([] { qWarning("from another thread"); }).join();
    }
    const QByteArray whole = encoded(patterned(QSize(40, 30)).toImage(), "jpg");
    QCOMPARE(errorOf([&] { decodePicture(whole.chopped(20) + "\xFF\xD9"); }), error::InvalidPicture);
    qWarning("another");
    QVERIFY(qInstallMessageHandler(before) == listener);
    QCOMPARE(heard, QStringList({"a word", "from another thread", "another"}));
}

void PictureDamageTest::whatFollowsThePictureDoesNotMatter_data() {
    QTest::addColumn<QByteArray>("content");
    const QImage picture = patterned(QSize(40, 30)).toImage();
    QTest::newRow("BMP") << encoded(picture, "bmp");
    QTest::newRow("GIF") << gif(QSize(40, 30), {{QRect(0, 0, 40, 30), 1}});
    QTest::newRow("JPEG") << encoded(picture, "jpg");
    QTest::newRow("PNG") << encoded(picture, "png");
}

void PictureDamageTest::whatFollowsThePictureDoesNotMatter() {
    QFETCH(QByteArray, content);
    const Raster alone = decodePicture(content);
    QVERIFY(decodePicture(content + QByteArray(3000, 'x')) == alone);
    QVERIFY(decodePicture(content + content) == alone);
}

void PictureDamageTest::pictureBeyondTheLimit() {
    const QByteArray plausiblyLong(100'000, 'x');
    QCOMPARE(errorOf([&] { decodePicture(tinyJpeg(30'000) + plausiblyLong); }), error::OutOfMemory);
}

void PictureDamageTest::announcedSizeIsNotBelieved_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("BMP") << tinyBmp(30'000);
    QTest::newRow("BMP, all bits") << tinyBmp(0x7FFFFFFF);
    QTest::newRow("BMP, negative") << tinyBmp(-30'000);
    QTest::newRow("BMP, most negative") << tinyBmp(INT_MIN);
    QTest::newRow("BMP of runs") << tinyRunLengthBmp(30'000, QByteArray("\0\1", 2));
    QTest::newRow("BMP of runs within the limit") << tinyRunLengthBmp(16'000, QByteArray("\0\1", 2));
    QTest::newRow("GIF") << tinyGif(30'000);
    QTest::newRow("GIF within the limit") << tinyGif(16'000);
    QTest::newRow("JPEG") << tinyJpeg(30'000);
    QTest::newRow("JPEG within the limit") << tinyJpeg(16'000);
}

void PictureDamageTest::announcedSizeIsNotBelieved() {
    QFETCH(QByteArray, content);
    QVERIFY(content.size() < 1000);
    const qint64 before = peakMemory();
    const testing::ProcessorTime time;
    const int number = errorOf([&] { decodePicture(content); });
    QVERIFY2(number == error::InvalidPicture || number == error::OutOfMemory,
             qPrintable(QString::number(number)));
    QVERIFY(time.milliseconds() < 2000);
    QVERIFY(peakMemory() - before < 100'000'000);
}

// Runs may skip pixels: they are of the palette's first colour then, not what the memory held.
void PictureDamageTest::leftOutPixelsHaveTheFirstColour() {
    const QByteArray runs("\x02\x01\0\1", 4);
    Raster expected(QSize(8, 8), rgb(255, 0, 0));
    expected.fill(QRect(0, 7, 2, 1), rgb(0, 0, 255));
    QVERIFY(decodePicture(tinyRunLengthBmp(8, runs)) == expected);
}

void PictureDamageTest::damagedFilesGiveTheSameEachTime_data() {
    whatFollowsThePictureDoesNotMatter_data();
}

void PictureDamageTest::damagedFilesGiveTheSameEachTime() {
    QFETCH(QByteArray, content);
    QRandomGenerator random(4711);
    for (int round = 0; round < 300; ++round) {
        QByteArray damaged = content;
        for (int change = random.bounded(1, 6); change > 0; --change)
            damaged[random.bounded(static_cast<int>(damaged.size()))] = static_cast<char>(random.generate());
        const Raster once = decodedOr(damaged, Raster());
        // What the freed memory holds differs now.
        QImage dirt(once.size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
        dirt.fill(random.generate());
        dirt = QImage();
        QVERIFY2(decodedOr(damaged, Raster()) == once, damaged.toHex());
    }
}

void PictureDamageTest::randomBytes() {
    QRandomGenerator random(20'01);
    for (const QByteArray& start :
         {QByteArray(), QByteArray("BM"), QByteArray("GIF89a"), QByteArray("GIF87a"),
          QByteArray("\xFF\xD8\xFF\xE0"), QByteArray("\x89PNG\r\n\x1A\n")}) {
        for (int round = 0; round < 100; ++round) {
            QByteArray content = start;
            for (int i = random.bounded(2000); i > 0; --i)
                content += static_cast<char>(random.generate());
            const int number = errorOf([&] { decodePicture(content); });
            QVERIFY2(number == 0 || number == error::InvalidPicture || number == error::OutOfMemory,
                     content.toHex());
        }
    }
}

OVRANO_TEST(PictureDamageTest)
#include "tst_picturedamage.moc"
