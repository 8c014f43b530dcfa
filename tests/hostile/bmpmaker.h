#pragma once

#include <QByteArray>
#include <QList>
#include <QRgb>
#include <QSize>

#include <functional>
#include <optional>

namespace ovrano::hostile {

/// A BMP file by its parts. What is not given is what an ordinary writer would put there.
struct BmpMaker {
    enum Compression : quint32 { None = 0, Runs8 = 1, Runs4 = 2, BitFields = 3, Jpeg = 4, Png = 5 };

    int headerBytes = 40; // 12, 16, 40, 52, 56, 64, 108 or 124: the versions of the second header
    QSize size;           // a negative height: stored from the top down
    int bits = 24;
    quint32 compression = None;
    QList<QRgb> palette;
    std::optional<quint32> coloursUsed;
    QList<quint32> masks; // red, green, blue, alpha: in the header where it has room for them, else behind
    QByteArray pixels;    // as they are stored
    std::optional<quint32> pixelOffset;
    QByteArray gap; // between the colours and the pixels

    QByteArray bytes() const;

    /// Fills `pixels` with rows of value(x, y), y from the top of what is seen.
    void store(const std::function<quint32(int x, int y)>& value);

private:
    QByteArray infoHeader() const;
    QByteArray colours() const;
    void appendMasks(QByteArray& header) const;
};

} // namespace ovrano::hostile
