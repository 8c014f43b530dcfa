#pragma once

#include <QString>
#include <QStringList>

namespace ovrano {

/// Whether a font family that was asked for is what a text will be drawn in.
enum class FontAvailability {
    Present,     ///< installed under this name
    MetricAlias, ///< not installed, but a family that was made with the same widths is
    Missing      ///< something else will be drawn
};

/// Compares without regard to case and to a foundry in brackets ("Nimbus Sans [urw]"). The family that the
/// toolkit reads back from a font is no answer: it always names some substitute.
FontAvailability fontAvailability(const QString& family, const QStringList& installed);

/// The same among the fonts of this computer.
FontAvailability fontAvailability(const QString& family);

} // namespace ovrano
