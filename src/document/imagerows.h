#pragma once

#include "document/pixelrows.h"

#include <QImage>

namespace ovrano {

/// The rows of a picture in memory; transparency is dropped.
class ImageRows : public PixelRows {
public:
    explicit ImageRows(const QImage& image)
        : m_image(image.convertToFormat(QImage::Format_RGB32)) {}

    QSize size() const override { return m_image.size(); }
    const QRgb* row(int y) override { return reinterpret_cast<const QRgb*>(m_image.constScanLine(y)); }
    std::unique_ptr<PixelRows> anotherReader() const override { return std::make_unique<ImageRows>(m_image); }

private:
    QImage m_image;
};

} // namespace ovrano
