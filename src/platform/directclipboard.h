#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace ovrano {

// Asks the clipboard's owner without the toolkit, which blocks every repaint until hundreds of megabytes are
// through or a silent owner times out, and does so for each question. Both functions yield while they wait.
// Where the platform has no such way they give nothing; ask the toolkit then.
//
// A silent owner is not asked again for some seconds and counts as empty until then.

/// The names of the types on offer; none when there is no owner.
std::optional<QStringList> announcedDirectly();

/// The bytes of a type. Empty when the owner refuses, vanishes or takes too long; never half a picture.
std::optional<QByteArray> fetchDirectly(const QString& type);

} // namespace ovrano
