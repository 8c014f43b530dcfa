#include "platform/clipboard.h"

#include "bodies.h"
#include "document/clipboardpicture.h"
#include "document/picturereader.h"
#include "drawing.h"
#include "finding.h"
#include "support/otherprogram.h"

#include <QtEndian>

namespace ovrano::fuzz {

namespace {

const QStringList Types = {
    QStringLiteral("image/png"),     QStringLiteral("image/bmp"),
    QStringLiteral("image/x-bmp"),   QStringLiteral("image/svg+xml"),
    QStringLiteral("text/uri-list"), QStringLiteral("image/jpeg"),
    QStringLiteral("text/plain"),    QStringLiteral("application/x-qt-image"),
};

/// Any bytes as a list of offers: the number of a type, two bytes of a length (the lower one first), and so
/// many bytes or what is left.
OtherProgram::Offers offersOf(const QByteArray& bytes) {
    constexpr qsizetype HeadBytes = 3;
    OtherProgram::Offers offers;
    for (qsizetype at = 0; at + HeadBytes <= bytes.size();) {
        const auto type = static_cast<uchar>(bytes[at]) % Types.size();
        const auto length = qFromLittleEndian<quint16>(bytes.constData() + at + 1);
        offers.append({Types[type], bytes.mid(at + HeadBytes, length)});
        at += HeadBytes + length;
    }
    return offers;
}

bool isAnyLeftOut(const OtherProgram::Offers& offers) {
    return std::any_of(offers.begin(), offers.end(), [](const auto& one) {
        return isLeftOut(announcedPictureSize(one.second), one.second) ||
               (one.first == Types[3] && isLargeDrawing(one.second));
    });
}

} // namespace

void pasteClipboard(const QByteArray& offers) {
    const OtherProgram::Offers all = offersOf(offers);
    if (isAnyLeftOut(all))
        return;
    offer(all);
    const bool isOffered = ClipboardOffer::now().includesPicture();
    std::optional<Raster> picture;
    const Reading read = reading([&] {
        picture = clipboardPicture();
        return picture.value_or(Raster());
    });
    require(read.refusedWith == 0 || read.refusedWith == error::OutOfMemory,
            "damaged data counts as no picture, not as an error");
    if (picture) {
        require(isOffered, "a picture from a clipboard that offers none");
        requireAcceptable(picture->size());
    }
    clearClipboard();
}

} // namespace ovrano::fuzz
