#include "document/jpegencoder.h"

#include "platform/runtimeerror.h"

#include <QtGlobal>

namespace ovrano {

namespace {

/// From this quality on, colour keeps its full resolution.
constexpr int FullColourQuality = 90;

constexpr UINT16 DotsPerInch = 96;

/// How the bytes of a 0xFFRRGGBB pixel lie in memory.
constexpr J_COLOR_SPACE PixelLayout = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? JCS_EXT_BGRX : JCS_EXT_XRGB;

void noMessage(j_common_ptr) {}

} // namespace

JpegEncoder::JpegEncoder(SafeFile& file)
    : m_file(file) {
    m_codec.err = jpeg_std_error(&m_errors);
    m_codec.client_data = this;
    m_errors.error_exit = fail;
    m_errors.output_message = noMessage;
    m_destination.init_destination = startBuffer;
    m_destination.empty_output_buffer = emptyBuffer;
    m_destination.term_destination = endBuffer;
}

JpegEncoder::~JpegEncoder() {
    jpeg_destroy_compress(&m_codec); // does nothing to a codec that was never created
}

void JpegEncoder::write(PixelRows& rows, int quality) {
    if (rows.size().width() > JPEG_MAX_DIMENSION || rows.size().height() > JPEG_MAX_DIMENSION)
        throw RuntimeError(
            error::InvalidPropertyValue,
            QStringLiteral("L'image est trop grande pour le format JPEG (%1 pixels de côté au plus)")
                .arg(JPEG_MAX_DIMENSION));
    EventYield yield;
    if (encode(rows, quality, yield))
        return;
    if (m_failure)
        std::rethrow_exception(m_failure);
    throw RuntimeError(error::OutOfMemory); // the one thing that can still fail inside the library
}

// Nothing in here may have a destructor: an error jumps out of the library's calls past it.
bool JpegEncoder::encode(PixelRows& rows, int quality, EventYield& yield) {
    if (setjmp(m_errorExit) != 0)
        return false;
    prepare(rows.size(), quality);
    jpeg_start_compress(&m_codec, TRUE);
    while (m_codec.next_scanline < m_codec.image_height) {
        const auto* row = reinterpret_cast<const JSAMPLE*>(rows.row(static_cast<int>(m_codec.next_scanline)));
        auto* line = const_cast<JSAMPROW>(row); // the library only reads it
        jpeg_write_scanlines(&m_codec, &line, 1);
        yield();
    }
    jpeg_finish_compress(&m_codec);
    return true;
}

void JpegEncoder::prepare(QSize size, int quality) {
    jpeg_create_compress(&m_codec);
    m_codec.dest = &m_destination;
    m_codec.image_width = static_cast<JDIMENSION>(size.width());
    m_codec.image_height = static_cast<JDIMENSION>(size.height());
    m_codec.input_components = sizeof(QRgb);
    m_codec.in_color_space = PixelLayout;
    jpeg_set_defaults(&m_codec);
    jpeg_set_quality(&m_codec, quality, TRUE);
    m_codec.density_unit = 1; // dots per inch
    m_codec.X_density = m_codec.Y_density = DotsPerInch;
    if (quality >= FullColourQuality)
        m_codec.comp_info[0].h_samp_factor = m_codec.comp_info[0].v_samp_factor = 1;
}

void JpegEncoder::fail(j_common_ptr codec) {
    std::longjmp(self(codec).m_errorExit, 1);
}

void JpegEncoder::startBuffer(j_compress_ptr codec) {
    JpegEncoder& encoder = self(codec);
    encoder.m_destination.next_output_byte = encoder.m_buffer.data();
    encoder.m_destination.free_in_buffer = encoder.m_buffer.size();
}

boolean JpegEncoder::emptyBuffer(j_compress_ptr codec) {
    self(codec).send(self(codec).m_buffer.size());
    startBuffer(codec);
    return TRUE;
}

void JpegEncoder::endBuffer(j_compress_ptr codec) {
    JpegEncoder& encoder = self(codec);
    encoder.send(encoder.m_buffer.size() - encoder.m_destination.free_in_buffer);
}

void JpegEncoder::send(std::size_t count) {
    try {
        m_file.write(m_buffer.data(), count);
    } catch (...) {
        m_failure = std::current_exception();
    }
    if (m_failure)
        fail(reinterpret_cast<j_common_ptr>(&m_codec)); // only now: a jump out of a handler would leak
}

} // namespace ovrano
