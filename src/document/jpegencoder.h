#pragma once

#include "document/pixelrows.h"
#include "document/safefile.h"

#include <array>
#include <csetjmp>
#include <cstdio> // jpeglib.h needs it and does not say so
#include <exception>
#include <jpeglib.h>

namespace ovrano {

/// Writes one picture as a JPEG into a file.
///
/// The library is C: it reports an error through a function that must not return, and no exception may pass
/// through its frames on every platform. So errors jump back (setjmp) into encode(), where nothing has a
/// destructor, and an exception of the file is kept in m_failure and thrown again from write().
class JpegEncoder {
public:
    explicit JpegEncoder(SafeFile& file);
    JpegEncoder(const JpegEncoder&) = delete;
    JpegEncoder& operator=(const JpegEncoder&) = delete;
    ~JpegEncoder();

    /// `quality` from 1 to 100. Throws what the file and the rows throw, error::InvalidPropertyValue for a
    /// picture that is too large for the format.
    void write(PixelRows& rows, int quality);

private:
    static JpegEncoder& self(j_common_ptr codec) { return *static_cast<JpegEncoder*>(codec->client_data); }
    static JpegEncoder& self(j_compress_ptr codec) { return *static_cast<JpegEncoder*>(codec->client_data); }
    [[noreturn]] static void fail(j_common_ptr codec);
    static void startBuffer(j_compress_ptr codec);
    static boolean emptyBuffer(j_compress_ptr codec);
    static void endBuffer(j_compress_ptr codec);

    void prepare(QSize size, int quality);
    bool encode(PixelRows& rows, int quality, EventYield& yield);
    void send(std::size_t count);

    SafeFile& m_file;
    jpeg_compress_struct m_codec = {};
    jpeg_error_mgr m_errors = {};
    jpeg_destination_mgr m_destination = {};
    std::jmp_buf m_errorExit = {};
    std::exception_ptr m_failure;
    std::array<JOCTET, 65'536> m_buffer = {};
};

} // namespace ovrano
