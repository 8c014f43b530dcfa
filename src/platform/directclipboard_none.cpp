#include "platform/directclipboard.h"

namespace ovrano {

std::optional<QByteArray> fetchDirectly(const QString&) {
    return std::nullopt;
}

} // namespace ovrano
