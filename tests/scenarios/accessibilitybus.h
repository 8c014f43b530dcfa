#pragma once

#include "scenarios/accessibleobject.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace ovrano::testing {

/// Asks programs what they tell screen readers, over the accessibility bus of a session (AT-SPI). Throws
/// InputError where an object does not answer, as one does not that has just closed.
class AccessibilityBus {
public:
    /// `session` is the address of the session's bus, on which the accessibility bus is started when it is
    /// first asked for.
    explicit AccessibilityBus(const QString& session);
    Q_DISABLE_COPY_MOVE(AccessibilityBus)
    ~AccessibilityBus();

    /// The programs that have announced themselves.
    QList<AccessibleAddress> programs();
    QList<AccessibleAddress> children(const AccessibleAddress& object);
    AccessibleStates states(const AccessibleAddress& object);
    QString name(const AccessibleAddress& object);
    /// An object and all that it shows. What is hidden in it, such as the rows of a closed list, is left out.
    AccessibleObject read(const AccessibleAddress& object);
    /// Asks for an object's first action, as "press" or "toggle", and does not wait for its end, which may
    /// be that of a dialog.
    void act(const AccessibleAddress& object);
    /// Asks for the keyboard to be given to an object.
    void focus(const AccessibleAddress& object);

private:
    QDBusMessage ask(const QDBusMessage& question);
    QVariant askAccessible(const AccessibleAddress& object, const QString& method);
    QString property(const AccessibleAddress& object, const QString& name);
    QStringList labels(const AccessibleAddress& object);
    QStringList letters(const AccessibleAddress& object);
    QRect place(const AccessibleAddress& object);

    QDBusConnection m_bus;
};

} // namespace ovrano::testing
