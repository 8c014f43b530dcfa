#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace ovrano {

// What the clipboard's owner has, asked for without the toolkit, which lets no window repaint until hundreds
// of megabytes are through or a silent owner's time is up, again for each question. Both yield while they
// wait and give nothing where the platform has no such way: the toolkit is to be asked then.
//
// An owner that kept silent is not asked again for some seconds and counts as having nothing meanwhile.

/// The names of the types on offer; none when there is no owner.
std::optional<QStringList> announcedDirectly();

/// The bytes of a type. Empty when the owner does not give it, vanishes on the way, or takes too long: half a
/// picture is never given.
std::optional<QByteArray> fetchDirectly(const QString& type);

} // namespace ovrano
