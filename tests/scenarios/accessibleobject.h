#pragma once

#include <QDBusObjectPath>
#include <QRect>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <vector>

namespace ovrano::testing {

/// Where an object is on the accessibility bus.
struct AccessibleAddress {
    QString service;
    QDBusObjectPath path;

    bool operator==(const AccessibleAddress& other) const = default;
};

/// States of an object, by their places in the bus's bit set.
enum class AccessibleState {
    Active = 1,
    Checked = 4,
    Enabled = 8,
    Focusable = 11,
    Focused = 12,
    Showing = 25
};

class AccessibleStates {
public:
    explicit AccessibleStates(std::uint64_t bits = 0)
        : m_bits(bits) {}
    bool has(AccessibleState state) const { return (m_bits >> static_cast<int>(state) & 1) != 0; }

private:
    std::uint64_t m_bits;
};

/// What a screen reader was told of an object that is on the screen, and of what is shown in it.
struct AccessibleObject {
    AccessibleAddress address;
    QString role;
    QString name;
    QString description;
    QStringList labels;  // the names of the objects that label this one
    QStringList letters; // the keys of its actions, such as "Alt+A"
    AccessibleStates states;
    QRect place; // pixels of the screen
    std::vector<AccessibleObject> children;

    bool isFocusable() const { return states.has(AccessibleState::Focusable); }
    /// Whether it is an edit that is part of another control, which takes the keyboard for it.
    bool isPartOf(const AccessibleObject& parent) const { return parent.role == QStringLiteral("combo box"); }
    /// What it is called. A combo box has what is chosen in it as its name and is called by its label.
    QString title() const;
    /// Role and title, such as "push button Quitter".
    QString spoken() const { return role + QLatin1Char(' ') + title(); }
};

/// Calls a function for an object and everything in it, with the object that each is in.
void visit(const AccessibleObject& object,
           const std::function<void(const AccessibleObject&, const AccessibleObject& parent)>& visitor);

/// Everything in an object that takes the keyboard by itself, enabled or not.
std::vector<AccessibleObject> controlsIn(const AccessibleObject& window);

/// The first object with a role and a title; throws InputError without one.
const AccessibleObject& find(const AccessibleObject& within, QStringView spoken);

} // namespace ovrano::testing
