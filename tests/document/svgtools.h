#pragma once

#include <QByteArray>

namespace ovrano {

/// A picture of 40 × 30 units with something in it.
inline QByteArray svg(const QByteArray& content, const QByteArray& size = "width='40' height='30'") {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' " + size +
           ">" + content + "</svg>";
}

} // namespace ovrano
