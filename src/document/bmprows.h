#pragma once

#include "document/pixelrows.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <vector>

namespace ovrano {

/// The rows of a 24-bit Windows BMP file as SavePicture writes it, read a few at a time: the picture is never
/// in memory as a whole. Any other BMP file is refused.
class BmpRows : public PixelRows {
public:
    /// Throws RuntimeError 53, 70, 75 or 76 when the file cannot be read, 481 when it is another kind of
    /// file or shorter than its header says, 57 when the disk fails.
    explicit BmpRows(const QString& path);

    QSize size() const override { return m_size; }
    /// Throws RuntimeError 57 when the file cannot be read any more.
    const QRgb* row(int y) override;

private:
    void readChunk(int firstRow);

    QFile m_file;
    QSize m_size;
    int m_chunkFirst = 0; // rows m_chunkFirst.. are in m_chunk, the highest one last
    int m_chunkCount = 0;
    QByteArray m_chunk;
    std::vector<QRgb> m_row;
};

} // namespace ovrano
