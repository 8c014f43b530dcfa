#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ovrano {

/// Fetches the bytes of a type from the clipboard's owner without the toolkit, whose own transfer lets no
/// window repaint until hundreds of megabytes are through. Yields while it waits.
///
/// Nothing where the platform has no such way: the toolkit is to be asked then. Empty when the owner does not
/// give the type, vanishes on the way or says nothing for some seconds; half a picture is never given.
std::optional<QByteArray> fetchDirectly(const QString& type);

} // namespace ovrano
