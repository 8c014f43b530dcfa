#include "text/colourcaption.h"

#include "platform/numbers.h"

namespace ovrano {

namespace {

/// Only what reads as a decimal number is padded to two digits: 5 gives "05", 12 gives "C".
QString hexPair(int channel) {
    const QString digits = QString::number(channel, 16).toUpper();
    return channel < 10 ? QLatin1Char('0') + digits : digits;
}

} // namespace

QString colourCaption(Colour colour) {
    const int red = redOf(colour);
    const int green = greenOf(colour);
    const int blue = blueOf(colour);
    return QStringLiteral("RVB(%1, %2, %3)  Hex: #%4%5%6")
        .arg(QString::number(red), QString::number(green), QString::number(blue), hexPair(red),
             hexPair(green), hexPair(blue));
}

Colour colourFromCaption(const QString& caption) {
    const QString pairs = caption.right(6);
    const auto channel = [&](qsizetype from) {
        return integerValue(QStringLiteral("&H") + pairs.mid(from, 2));
    };
    return rgb(channel(0), channel(2), channel(4));
}

} // namespace ovrano
