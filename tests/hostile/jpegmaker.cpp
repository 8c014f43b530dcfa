#include "jpegmaker.h"

#include <cstdlib>
#include <memory>

namespace ovrano::hostile {

namespace {

struct Free {
    void operator()(unsigned char* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};

} // namespace

void JpegMaker::configure(jpeg_compress_struct& codec) const {
    codec.image_width = static_cast<JDIMENSION>(size.width());
    codec.image_height = static_cast<JDIMENSION>(size.height());
    codec.in_color_space = given;
    codec.input_components = given == JCS_GRAYSCALE ? 1 : given == JCS_CMYK ? 4 : 3;
    jpeg_set_defaults(&codec);
    jpeg_set_colorspace(&codec, stored);
    jpeg_set_quality(&codec, quality, TRUE);
    if (stored == JCS_YCbCr || stored == JCS_YCCK) {
        codec.comp_info[0].h_samp_factor = sampling[0];
        codec.comp_info[0].v_samp_factor = sampling[1];
    }
    if (stored == JCS_YCCK) {
        codec.comp_info[3].h_samp_factor = sampling[0];
        codec.comp_info[3].v_samp_factor = sampling[1];
    }
    codec.arith_code = arithmetic ? TRUE : FALSE;
    codec.restart_interval = static_cast<unsigned>(restartBlocks);
    codec.write_JFIF_header = jfif ? TRUE : FALSE;
    codec.write_Adobe_marker = adobe ? TRUE : FALSE;
    if (progressive)
        jpeg_simple_progression(&codec);
}

QByteArray JpegMaker::bytes(const std::function<std::vector<int>(int x, int y)>& pixel) const {
    jpeg_compress_struct codec = {};
    jpeg_error_mgr errors = {};
    codec.err = jpeg_std_error(&errors); // ends the test where what was asked for cannot be written
    jpeg_create_compress(&codec);
    unsigned char* memory = nullptr;
    unsigned long count = 0;
    jpeg_mem_dest(&codec, &memory, &count);
    configure(codec);
    jpeg_start_compress(&codec, TRUE);
    for (int y = 0; y < size.height(); ++y) {
        std::vector<JSAMPLE> row;
        for (int x = 0; x < size.width(); ++x)
            for (const int channel : pixel(x, y))
                row.push_back(static_cast<JSAMPLE>(channel));
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&codec, rows, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const std::unique_ptr<unsigned char, Free> owned(memory);
    return QByteArray(reinterpret_cast<const char*>(memory), static_cast<qsizetype>(count));
}

} // namespace ovrano::hostile
