#include "text/fontavailability.h"

#include "platform/screen.h"

#include <algorithm>
#include <array>

namespace ovrano {

namespace {

/// A well-known family and the free ones that were drawn to its widths.
struct Alias {
    const char* family;
    std::array<const char*, 3> standIns; // a null pointer where there are fewer
};

constexpr std::array<Alias, 8> MetricAliases = {{
    {"Arial", {"Liberation Sans", "Arimo", nullptr}},
    {"Times New Roman", {"Liberation Serif", "Tinos", nullptr}},
    {"Courier New", {"Liberation Mono", "Cousine", nullptr}},
    {"Helvetica", {"Liberation Sans", "Arimo", "Nimbus Sans"}},
    {"Times", {"Liberation Serif", "Tinos", "Nimbus Roman"}},
    {"Courier", {"Liberation Mono", "Cousine", "Nimbus Mono PS"}},
    {"Calibri", {"Carlito", nullptr, nullptr}},
    {"Cambria", {"Caladea", nullptr, nullptr}},
}};

QString folded(const QString& family) {
    return withoutFoundry(family).trimmed().toCaseFolded();
}

bool contains(const QStringList& installed, const QString& foldedFamily) {
    const auto same = [&](const QString& other) { return folded(other) == foldedFamily; };
    return std::any_of(installed.begin(), installed.end(), same);
}

bool hasStandIn(const QStringList& installed, const Alias& alias) {
    return std::any_of(alias.standIns.begin(), alias.standIns.end(), [&](const char* name) {
        return name && contains(installed, folded(QLatin1String(name)));
    });
}

} // namespace

FontAvailability fontAvailability(const QString& family, const QStringList& installed) {
    const QString wanted = folded(family);
    if (contains(installed, wanted))
        return FontAvailability::Present;
    const bool standsFor = std::any_of(MetricAliases.begin(), MetricAliases.end(), [&](const Alias& alias) {
        return folded(QLatin1String(alias.family)) == wanted && hasStandIn(installed, alias);
    });
    return standsFor ? FontAvailability::MetricAlias : FontAvailability::Missing;
}

FontAvailability fontAvailability(const QString& family) {
    return fontAvailability(family, screenFonts());
}

} // namespace ovrano
