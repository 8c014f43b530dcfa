#include "scenarios/accessibilitybus.h"

#include "support/inputerror.h"

#include <QDBusArgument>

namespace ovrano::testing {

namespace {

constexpr int Patience = 60'000; // milliseconds; the bus and its registry may have to be started first

constexpr quint32 LabelledBy = 2;

const QString SessionName = QStringLiteral("session");
const QString BusName = QStringLiteral("accessibility");
const QString Accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString Action = QStringLiteral("org.a11y.atspi.Action");
const QString Component = QStringLiteral("org.a11y.atspi.Component");
const QString Properties = QStringLiteral("org.freedesktop.DBus.Properties");

struct Relation {
    quint32 type = 0;
    QList<AccessibleAddress> targets;
};

struct OfferedAction {
    QString name;
    QString description;
    QString key;
};

const QDBusArgument& operator>>(const QDBusArgument& from, AccessibleAddress& address) {
    from.beginStructure();
    from >> address.service >> address.path;
    from.endStructure();
    return from;
}

const QDBusArgument& operator>>(const QDBusArgument& from, QList<AccessibleAddress>& addresses) {
    for (from.beginArray(); !from.atEnd();)
        from >> addresses.emplaceBack();
    from.endArray();
    return from;
}

const QDBusArgument& operator>>(const QDBusArgument& from, Relation& relation) {
    from.beginStructure();
    from >> relation.type >> relation.targets;
    from.endStructure();
    return from;
}

const QDBusArgument& operator>>(const QDBusArgument& from, OfferedAction& action) {
    from.beginStructure();
    from >> action.name >> action.description >> action.key;
    from.endStructure();
    return from;
}

/// The list that an answer consists of.
template<typename Item>
QList<Item> listIn(const QVariant& answer) {
    QList<Item> items;
    const auto list = answer.value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();)
        list >> items.emplaceBack();
    list.endArray();
    return items;
}

QDBusMessage question(const AccessibleAddress& object, const QString& interface, const QString& method,
                      const QVariantList& arguments = {}) {
    QDBusMessage call = QDBusMessage::createMethodCall(object.service, object.path.path(), interface, method);
    call.setArguments(arguments);
    return call;
}

QString addressOfBus(const QString& session) {
    QDBusConnection bus = QDBusConnection::connectToBus(session, SessionName);
    const AccessibleAddress launcher{QStringLiteral("org.a11y.Bus"),
                                     QDBusObjectPath(QStringLiteral("/org/a11y/bus"))};
    const QDBusMessage answer =
        bus.call(question(launcher, launcher.service, QStringLiteral("GetAddress")), QDBus::Block, Patience);
    QDBusConnection::disconnectFromBus(SessionName);
    if (answer.type() != QDBusMessage::ReplyMessage)
        throw InputError(QStringLiteral("there is no accessibility bus: ") + answer.errorMessage());
    return answer.arguments().value(0).toString();
}

} // namespace

AccessibilityBus::AccessibilityBus(const QString& session)
    : m_bus(QDBusConnection::connectToBus(addressOfBus(session), BusName)) {
    if (!m_bus.isConnected())
        throw InputError(QStringLiteral("the accessibility bus does not answer"));
}

AccessibilityBus::~AccessibilityBus() {
    QDBusConnection::disconnectFromBus(BusName);
}

QDBusMessage AccessibilityBus::ask(const QDBusMessage& question) {
    QDBusMessage answer = m_bus.call(question, QDBus::Block, Patience);
    if (answer.type() != QDBusMessage::ReplyMessage)
        throw InputError(question.member() + QStringLiteral(" has no answer: ") + answer.errorMessage());
    return answer;
}

QVariant AccessibilityBus::askAccessible(const AccessibleAddress& object, const QString& method) {
    return ask(question(object, Accessible, method)).arguments().value(0);
}

QString AccessibilityBus::property(const AccessibleAddress& object, const QString& name) {
    const QDBusMessage answer = ask(question(object, Properties, QStringLiteral("Get"), {Accessible, name}));
    return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
}

QList<AccessibleAddress> AccessibilityBus::programs() {
    return children({QStringLiteral("org.a11y.atspi.Registry"),
                     QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root"))});
}

QList<AccessibleAddress> AccessibilityBus::children(const AccessibleAddress& object) {
    return listIn<AccessibleAddress>(askAccessible(object, QStringLiteral("GetChildren")));
}

AccessibleStates AccessibilityBus::states(const AccessibleAddress& object) {
    const auto words = listIn<quint32>(askAccessible(object, QStringLiteral("GetState")));
    return AccessibleStates(words.value(0) | std::uint64_t{words.value(1)} << 32);
}

QString AccessibilityBus::name(const AccessibleAddress& object) {
    return property(object, QStringLiteral("Name"));
}

QStringList AccessibilityBus::labels(const AccessibleAddress& object) {
    QStringList names;
    for (const Relation& relation : listIn<Relation>(askAccessible(object, QStringLiteral("GetRelationSet"))))
        if (relation.type == LabelledBy)
            for (const AccessibleAddress& label : relation.targets)
                names.append(name(label));
    return names;
}

QStringList AccessibilityBus::letters(const AccessibleAddress& object) {
    const QDBusMessage answer = ask(question(object, Action, QStringLiteral("GetActions")));
    QStringList keys;
    for (const OfferedAction& action : listIn<OfferedAction>(answer.arguments().value(0)))
        if (!action.key.isEmpty())
            keys.append(action.key);
    return keys;
}

QRect AccessibilityBus::place(const AccessibleAddress& object) {
    constexpr quint32 OnScreen = 0;
    const QDBusMessage answer = ask(question(object, Component, QStringLiteral("GetExtents"), {OnScreen}));
    QRect place;
    const auto extents = answer.arguments().value(0).value<QDBusArgument>();
    extents >> place;
    return place;
}

AccessibleObject AccessibilityBus::read(const AccessibleAddress& object) {
    const auto interfaces = askAccessible(object, QStringLiteral("GetInterfaces")).toStringList();
    AccessibleObject told;
    told.address = object;
    told.role = askAccessible(object, QStringLiteral("GetRoleName")).toString();
    told.name = name(object);
    told.description = property(object, QStringLiteral("Description"));
    told.labels = labels(object);
    if (interfaces.contains(Action))
        told.letters = letters(object);
    told.states = states(object);
    told.place = place(object);
    for (const AccessibleAddress& child : children(object))
        if (states(child).has(AccessibleState::Showing))
            told.children.push_back(read(child));
    return told;
}

void AccessibilityBus::act(const AccessibleAddress& object) {
    constexpr qint32 First = 0;
    m_bus.send(question(object, Action, QStringLiteral("DoAction"), {First}));
}

void AccessibilityBus::focus(const AccessibleAddress& object) {
    ask(question(object, Component, QStringLiteral("GrabFocus")));
}

} // namespace ovrano::testing
