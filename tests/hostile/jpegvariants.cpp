// JPEG files of all kinds that cameras, scanners and printers' programs write, and damaged ones.

#include "jpegmaker.h"
#include "variant.h"

namespace ovrano::hostile {

namespace {

constexpr int Lossy = 10; // steps that a smooth picture may lose

/// Smooth, so that little is lost.
QRgb smooth(int x, int y) {
    return qRgb(40 + 4 * x, 220 - 4 * y, 60 + 2 * x + y);
}

QRgb smoothGrey(int x, int y) {
    const int grey = 30 + 3 * x + y;
    return qRgb(grey, grey, grey);
}

std::vector<int> rgbOf(int x, int y) {
    return {qRed(smooth(x, y)), qGreen(smooth(x, y)), qBlue(smooth(x, y))};
}

/// Cyan, magenta, yellow and a third of black, upside down, as all programs write them that mark the file.
std::vector<int> invertedInks(int x, int y) {
    constexpr int Black = 255 * 2 / 3;
    std::vector<int> inks = rgbOf(x, y);
    inks.push_back(Black);
    return inks;
}

QRgb printed(int x, int y) {
    const auto shaded = [](int channel) { return channel * 2 / 3; };
    const QRgb colour = smooth(x, y);
    return qRgb(shaded(qRed(colour)), shaded(qGreen(colour)), shaded(qBlue(colour)));
}

Variant coloured(const QByteArray& name, const JpegMaker& maker) {
    return {name, maker.bytes(rgbOf), drawn(maker.size, smooth), Lossy};
}

Variants codings() {
    Variants all;
    JpegMaker maker;
    all.push_back(coloured("baseline", maker));
    maker.progressive = true;
    all.push_back(coloured("progressive", maker));
    maker = JpegMaker();
    maker.restartBlocks = 3;
    all.push_back(coloured("restart marks", maker));
    maker = JpegMaker();
    maker.arithmetic = true;
    all.push_back(coloured("arithmetic coding", maker));
    for (const auto& [across, down] :
         {std::pair(2, 1), std::pair(2, 2), std::pair(1, 2), std::pair(4, 1), std::pair(4, 2)}) {
        maker = JpegMaker();
        maker.sampling = {across, down};
        const QByteArray name =
            "colours at 1/" + QByteArray::number(across) + " by 1/" + QByteArray::number(down);
        all.push_back(coloured(name, maker));
        maker.size = QSize(37, 23); // no whole blocks
        maker.progressive = true;
        all.push_back(coloured(name + ", odd size, progressive", maker));
    }
    return all;
}

Variants colourSpaces() {
    Variants all;
    JpegMaker grey;
    grey.given = grey.stored = JCS_GRAYSCALE;
    all.push_back({"grey", grey.bytes([](int x, int y) { return std::vector<int>{qRed(smoothGrey(x, y))}; }),
                   drawn(grey.size, smoothGrey), Lossy});
    JpegMaker rgb;
    rgb.stored = JCS_RGB;
    rgb.jfif = false;
    rgb.adobe = true;
    all.push_back(coloured("red, green and blue, marked", rgb));
    rgb.adobe = false;
    all.push_back(coloured("red, green and blue, by their names", rgb));
    JpegMaker unmarked;
    unmarked.jfif = false;
    all.push_back(coloured("no mark at all", unmarked));
    for (const auto& [name, stored] :
         {std::pair("inks", JCS_CMYK), std::pair("inks as brightness and colour", JCS_YCCK)}) {
        JpegMaker inks;
        inks.given = JCS_CMYK;
        inks.stored = stored;
        inks.jfif = false;
        inks.adobe = true;
        all.push_back({name, inks.bytes(invertedInks), drawn(inks.size, printed), Lossy});
        inks.progressive = true;
        all.push_back(
            {QByteArray(name) + ", progressive", inks.bytes(invertedInks), drawn(inks.size, printed), Lossy});
    }
    return all;
}

QByteArray segment(int marker, const QByteArray& content) {
    QByteArray bytes = QByteArray(1, '\xFF') + static_cast<char>(marker);
    appendBig(bytes, static_cast<quint16>(content.size() + 2));
    return bytes + content;
}

/// Behind the mark that begins the file.
QByteArray withSegment(const QByteArray& jpeg, const QByteArray& bytes) {
    return jpeg.left(2) + bytes + jpeg.mid(2);
}

/// A directory of entries of a number of 16 bits each.
template<typename Append16, typename Append32>
QByteArray directory(const QByteArray& start, Append16&& append16, Append32&& append32,
                     const QList<std::pair<int, int>>& entries, int firstAt) {
    QByteArray bytes = start;
    append16(bytes, 42);
    append32(bytes, firstAt);
    append16(bytes, static_cast<int>(entries.size()));
    for (const auto& [tag, value] : entries) {
        append16(bytes, tag);
        append16(bytes, 3); // a number of 16 bits
        append32(bytes, 1);
        append16(bytes, value);
        append16(bytes, 0);
    }
    append32(bytes, 0);
    return bytes;
}

QByteArray tags(bool little, const QList<std::pair<int, int>>& entries, int firstAt = 8) {
    if (little)
        return directory(
            "II", [](QByteArray& bytes, int number) { appendLittle(bytes, static_cast<quint16>(number)); },
            [](QByteArray& bytes, int number) { appendLittle(bytes, number); }, entries, firstAt);
    return directory(
        "MM", [](QByteArray& bytes, int number) { appendBig(bytes, static_cast<quint16>(number)); },
        [](QByteArray& bytes, int number) { appendBig(bytes, number); }, entries, firstAt);
}

constexpr int OrientationTag = 0x112;
constexpr int TagsMarker = 0xE1;

QByteArray withTags(const QByteArray& jpeg, const QByteArray& content) {
    return withSegment(jpeg, segment(TagsMarker, QByteArray("Exif\0\0", 6) + content));
}

/// The place in the stored picture of what an orientation shows at a place.
QPoint storedPlace(int orientation, QSize stored, int x, int y) {
    const int right = stored.width() - 1;
    const int bottom = stored.height() - 1;
    switch (orientation) {
    case 2:
        return QPoint(right - x, y);
    case 3:
        return QPoint(right - x, bottom - y);
    case 4:
        return QPoint(x, bottom - y);
    case 5:
        return QPoint(y, x);
    case 6:
        return QPoint(y, bottom - x);
    case 7:
        return QPoint(right - y, bottom - x);
    case 8:
        return QPoint(right - y, x);
    default:
        return QPoint(x, y);
    }
}

Raster turned(int orientation, QSize stored) {
    return drawn(orientation >= 5 ? stored.transposed() : stored, [&](int x, int y) {
        const QPoint place = storedPlace(orientation, stored, x, y);
        return smooth(place.x(), place.y());
    });
}

Variants orientations() {
    Variants all;
    const JpegMaker maker;
    const QByteArray plain = maker.bytes(rgbOf);
    for (const bool little : {false, true})
        for (int orientation = 0; orientation <= 9; ++orientation)
            all.push_back(
                {"orientation " + QByteArray::number(orientation) + (little ? ", lower byte first" : ""),
                 withTags(plain, tags(little, {{0x103, 6}, {OrientationTag, orientation}})),
                 turned(orientation <= 8 ? orientation : 1, maker.size), Lossy});
    return all;
}

/// Tags that make no sense: the picture comes as it is stored.
Variants brokenTags() {
    Variants all;
    const JpegMaker maker;
    const QByteArray plain = maker.bytes(rgbOf);
    const Raster asStored = drawn(maker.size, smooth);
    const QByteArray right = tags(true, {{OrientationTag, 6}});
    const auto add = [&](const char* name, const QByteArray& content) {
        all.push_back({name, withTags(plain, content), asStored, Lossy});
    };
    add("tags: none", QByteArray());
    add("tags: directory beyond the end", tags(true, {{OrientationTag, 6}}, 5000));
    add("tags: directory before the start", tags(false, {{OrientationTag, 6}}, -1));
    add("tags: other byte order", "XX" + right.mid(2));
    for (const int length : {1, 3, 7, 9, 11, 15})
        add(qPrintable(QStringLiteral("tags: cut off after %1").arg(length)), right.left(length));
    QByteArray many = right;
    qToLittleEndian(quint16{0xFFFF}, many.data() + 8);
    all.push_back(
        {"tags: more announced than there are", withTags(plain, many), turned(6, maker.size), Lossy});
    return all;
}

/// A small picture in front, as cameras put it.
Variants thumbnails() {
    const JpegMaker maker;
    JpegMaker small;
    small.size = QSize(8, 8);
    const QByteArray thumbnail = small.bytes([](int, int) { return std::vector<int>{255, 0, 0}; });
    const QByteArray plain = maker.bytes(rgbOf);
    return {
        {"a small picture among the tags", withTags(plain, tags(false, {{OrientationTag, 1}}) + thumbnail),
         drawn(maker.size, smooth), Lossy},
        {"a remark and private segments",
         withSegment(plain, segment(0xFE, "remark \xFF\xD9 end") + segment(0xEF, QByteArray(9000, '\xFF'))),
         drawn(maker.size, smooth), Lossy}};
}

QByteArray withByte(QByteArray content, qsizetype at, int value) {
    content[at] = static_cast<char>(value);
    return content;
}

} // namespace

Variants jpegVariants() {
    Variants all;
    for (const auto& some : {codings(), colourSpaces(), thumbnails()})
        append(all, some);
    return all;
}

Variants jpegOrientations() {
    Variants all = orientations();
    append(all, brokenTags());
    return all;
}

Variants jpegDamage() {
    const JpegMaker maker;
    const QByteArray plain = maker.bytes(rgbOf);
    const qsizetype frame = plain.indexOf("\xFF\xC0");
    const qsizetype codes = plain.indexOf("\xFF\xDA");
    const qsizetype tables = plain.indexOf("\xFF\xDB");
    const qsizetype huffman = plain.indexOf("\xFF\xC4");
    return {
        {"something in front", "xx" + plain, Raster()},
        {"12 bits a channel", withByte(plain, frame + 4, 12), Raster()},
        {"no channels", withByte(plain, frame + 9, 0), Raster()},
        {"five channels", withByte(plain, frame + 9, 5), Raster()},
        {"lossless", withByte(plain, frame + 1, 0xC3), Raster()},
        {"hierarchical", withByte(plain, frame + 1, 0xC5), Raster()},
        {"no frame", plain.left(frame) + plain.mid(codes), Raster()},
        {"no codes", plain.left(codes) + plain.right(2), Raster()},
        {"no quantisation tables", withByte(plain, tables + 1, 0xED), Raster()},
        {"broken code tables", withByte(plain, huffman + 5, 0xFF), Raster()},
        {"a segment beyond the end", withByte(withByte(plain, tables + 2, 0xFF), tables + 3, 0xFF), Raster()},
        {"no height", withByte(withByte(plain, frame + 5, 0), frame + 6, 0), Raster()}};
}

} // namespace ovrano::hostile
