#pragma once

#include "document/pixelrows.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <memory>
#include <mutex>
#include <vector>

namespace ovrano {

/// The rows of a 24-bit Windows BMP file as SavePicture writes it, read a few at a time: the picture is never
/// in memory as a whole. Any other BMP file is refused.
class BmpRows : public PixelRows {
public:
    /// Throws error::FileNotFound, error::PermissionDenied, error::PathFileAccess or error::PathNotFound when
    /// the file cannot be read, error::InvalidPicture when it is another kind of file or shorter than its
    /// header says, error::DeviceIo when the disk fails.
    explicit BmpRows(const QString& path);

    QSize size() const override { return m_size; }
    /// Throws error::DeviceIo when the file cannot be read any more.
    const QRgb* row(int y) override;
    /// Reads the same open file, whatever becomes of its name meanwhile.
    std::unique_ptr<PixelRows> anotherReader() const override;

private:
    /// A file with one place for reading, which several readers move.
    struct SharedFile {
        explicit SharedFile(const QString& path)
            : file(path) {}

        std::mutex mutex;
        QFile file;
    };

    BmpRows(std::shared_ptr<SharedFile> file, QSize size);
    void readBand(int firstRow);

    std::shared_ptr<SharedFile> m_file;
    QSize m_size;
    int m_bandFirst = 0; // rows m_bandFirst.. are in m_band, the highest one last
    int m_bandCount = 0;
    QByteArray m_band;
    std::vector<QRgb> m_row;
};

} // namespace ovrano
