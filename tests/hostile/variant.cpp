#include "variant.h"

namespace ovrano::hostile {

Variants allVariants() {
    Variants all;
    const auto add = [&](const QByteArray& format, Variants some) {
        for (Variant& one : some)
            one.name.prepend(format + ": ");
        append(all, some);
    };
    add("BMP", bmpVariants());
    add("BMP", bmpRunVariants());
    add("BMP", bmpDamage());
    add("GIF", gifVariants());
    add("GIF", gifDamage());
    add("JPEG", jpegVariants());
    add("JPEG", jpegOrientations());
    add("JPEG", jpegDamage());
    add("PNG", pngVariants());
    add("PNG", pngDamage());
    return all;
}

} // namespace ovrano::hostile
