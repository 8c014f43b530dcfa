#include "scenarios/accessibilityrules.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>

namespace ovrano::testing {

namespace {

/// The roles of what is worked by the keyboard; a screen reader knows how.
bool isWorkable(const QString& role) {
    static const QStringList roles = {
        QStringLiteral("push button"), QStringLiteral("check box"), QStringLiteral("text"),
        QStringLiteral("combo box"),   QStringLiteral("slider"),    QStringLiteral("scroll bar"),
        QStringLiteral("graphic"),
    };
    return roles.contains(role);
}

/// A name for the program's own use, such as "Command1", "imgBold" or "Mnu_Pipette".
bool isForProgrammers(const QString& name) {
    static const QRegularExpression identifier(
        QStringLiteral("^[A-Za-z]+[0-9]+$|^[A-Za-z]+[a-z][A-Z]\\w*$|^\\w+_\\w+$"));
    return identifier.match(name).hasMatch();
}

QStringList repeated(const QStringList& items) {
    QMap<QString, int> counts;
    for (const QString& item : items)
        ++counts[item];
    QStringList found;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count)
        if (count.value() > 1)
            found.append(count.key());
    return found;
}

/// Whether two stretches share a good part of the shorter one.
bool overlap(int from, int to, int otherFrom, int otherTo) {
    const int shared = std::min(to, otherTo) - std::max(from, otherFrom);
    return 4 * shared > std::min(to - from, otherTo - otherFrom);
}

/// Whether one reads `first` before `second`: on the same line from the left, otherwise from above.
bool isReadBefore(const QRect& first, const QRect& second) {
    if (overlap(first.top(), first.bottom(), second.top(), second.bottom()))
        return first.left() < second.left();
    return first.top() < second.top();
}

bool contains(const AccessibleObject& object, const AccessibleAddress& wanted) {
    if (object.address == wanted)
        return true;
    return std::any_of(object.children.begin(), object.children.end(),
                       [&](const AccessibleObject& child) { return contains(child, wanted); });
}

/// The smallest object that has both in it, and its children that have one each.
std::pair<const AccessibleObject*, const AccessibleObject*>
parting(const AccessibleObject& within, const AccessibleAddress& first, const AccessibleAddress& second) {
    const auto holding = [&](const AccessibleAddress& wanted) {
        const auto child =
            std::find_if(within.children.begin(), within.children.end(),
                         [&](const AccessibleObject& object) { return contains(object, wanted); });
        return child == within.children.end() ? nullptr : &*child;
    };
    const AccessibleObject* one = holding(first);
    const AccessibleObject* other = holding(second);
    return one && one == other ? parting(*one, first, second) : std::pair(one, other);
}

} // namespace

QStringList unnamedControls(const AccessibleObject& window) {
    QStringList complaints;
    visit(window, [&](const AccessibleObject& object, const AccessibleObject& parent) {
        if (!object.isFocusable())
            return;
        const QString title = object.title().trimmed();
        if (title.isEmpty() || isForProgrammers(title) || !isWorkable(object.role))
            complaints.append(object.spoken() + QStringLiteral(" in ") + parent.spoken());
    });
    return complaints;
}

QStringList controlsOfOneName(const AccessibleObject& window) {
    QStringList spoken;
    for (const AccessibleObject& control : controlsIn(window))
        spoken.append(control.spoken());
    return repeated(spoken);
}

QStringList looseLabels(const AccessibleObject& window) {
    QStringList tied;
    QStringList announcing;
    visit(window, [&](const AccessibleObject& object, const AccessibleObject&) {
        tied.append(object.labels);
        if (object.role == QStringLiteral("label") && object.name.trimmed().endsWith(QLatin1Char(':')))
            announcing.append(object.name);
    });
    announcing.removeIf([&](const QString& label) { return tied.contains(label); });
    return announcing;
}

QStringList doubledLetters(const AccessibleObject& window) {
    QStringList letters;
    for (const AccessibleObject& control : controlsIn(window))
        letters.append(control.letters);
    return repeated(letters);
}

QStringList leapsAgainstReading(const AccessibleObject& window,
                                const std::vector<AccessibleObject>& visited) {
    QStringList complaints;
    for (std::size_t i = 1; i < visited.size(); ++i) {
        const AccessibleObject& from = visited.at(i - 1);
        const AccessibleObject& to = visited.at(i);
        const auto [before, after] = parting(window, from.address, to.address);
        if (!before || !after || !isReadBefore(before->place, after->place))
            complaints.append(from.spoken() + QStringLiteral(" -> ") + to.spoken());
    }
    return complaints;
}

} // namespace ovrano::testing
