#pragma once

#include "platform/raster.h"
#include "platform/runtimeerror.h"

#include <optional>
#include <stdexcept>

namespace ovrano::fuzz {

/// Something that must not happen, whatever the bytes are.
class Finding : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

inline void require(bool holds, const char* rule) {
    if (!holds)
        throw Finding(rule);
}

/// What reading gives: a picture, or the number of the error that refused it.
struct Reading {
    std::optional<Raster> picture;
    int refusedWith = 0;

    friend bool operator==(const Reading&, const Reading&) = default;
};

/// Reads. A refusal must be one of the two that say "no picture" and "too large", and say it in words.
template<typename Read>
Reading reading(Read&& read) {
    try {
        return {read(), 0};
    } catch (const RuntimeError& refusal) {
        require(refusal.number() == error::InvalidPicture || refusal.number() == error::OutOfMemory,
                "refused with an error that has nothing to do with pictures");
        require(!refusal.description().isEmpty(), "refused without a word");
        return {std::nullopt, refusal.number()};
    }
}

/// Large pictures take so long that nearly all of a fuzzer's time would go to them: most of them are left
/// out, always the same ones.
inline bool isLeftOut(QSize size, const QByteArray& bytes) {
    constexpr qint64 SmallPixels = 1 << 18;
    constexpr std::size_t OneOf = 64;
    return qint64{size.width()} * size.height() > SmallPixels && qHash(bytes, 0) % OneOf != 0;
}

} // namespace ovrano::fuzz
