#include "platform/directclipboard.h"

namespace ovrano {

std::optional<QStringList> announcedDirectly() {
    return std::nullopt;
}

std::optional<QByteArray> fetchDirectly(const QString&) {
    return std::nullopt;
}

} // namespace ovrano
