#include "support/jpegcodec.h"

#include <cstdio> // jpeglib.h needs it and does not say so
#include <jpeglib.h>

namespace ovrano::bench {

QImage decodeJpeg(const QString& path) {
    std::FILE* file = std::fopen(qPrintable(path), "rb");
    if (file == nullptr)
        return QImage();
    jpeg_error_mgr errors; // the standard one ends the program
    jpeg_decompress_struct codec = {};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&codec);
    jpeg_stdio_src(&codec, file);
    jpeg_read_header(&codec, TRUE);
    codec.out_color_space = JCS_EXT_BGRX;
    jpeg_start_decompress(&codec);
    QImage image(static_cast<int>(codec.output_width), static_cast<int>(codec.output_height),
                 QImage::Format_RGB32);
    while (codec.output_scanline < codec.output_height) {
        JSAMPROW row = image.scanLine(static_cast<int>(codec.output_scanline));
        jpeg_read_scanlines(&codec, &row, 1);
    }
    jpeg_finish_decompress(&codec);
    jpeg_destroy_decompress(&codec);
    std::fclose(file);
    return image;
}

QByteArray encodeJpeg(const uchar* bottomUpRows, QSize size, int quality) {
    jpeg_error_mgr errors;
    jpeg_compress_struct codec = {};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* bytes = nullptr;
    unsigned long count = 0;
    jpeg_mem_dest(&codec, &bytes, &count);
    codec.image_width = static_cast<JDIMENSION>(size.width());
    codec.image_height = static_cast<JDIMENSION>(size.height());
    codec.input_components = 3;
    codec.in_color_space = JCS_EXT_BGR;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, quality, TRUE);
    jpeg_start_compress(&codec, TRUE);
    const qsizetype stride = (qsizetype{size.width()} * 3 + 3) / 4 * 4;
    while (codec.next_scanline < codec.image_height) {
        const qsizetype y = size.height() - 1 - static_cast<qsizetype>(codec.next_scanline);
        JSAMPROW row = const_cast<uchar*>(bottomUpRows + y * stride);
        jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const QByteArray encoded(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count));
    std::free(bytes); // the library's own buffer
    return encoded;
}

} // namespace ovrano::bench
