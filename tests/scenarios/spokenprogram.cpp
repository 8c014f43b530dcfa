#include "scenarios/spokenprogram.h"

#include "support/inputerror.h"

#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace ovrano::testing {

namespace {

constexpr int Patience = 60'000; // milliseconds until something that should appear has not

/// Starts a process that ends with this one, even when this one is killed.
void startAttached(QProcess& process, const QString& name, const QStringList& arguments) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    process.start(name, arguments);
    if (!process.waitForStarted(Patience))
        throw InputError(name + QStringLiteral(" does not start: ") + process.errorString());
}

void end(QProcess& process) {
    process.terminate();
    if (!process.waitForFinished(Patience))
        process.kill();
}

} // namespace

SpokenProgram::SpokenProgram() {
    startSession();
    startProgram();
    m_bus.emplace(m_sessionAddress);
    waitFor(
        [this] {
            const QList<AccessibleAddress> programs = m_bus->programs();
            m_root = programs.value(0);
            return programs.size() == 1;
        },
        QStringLiteral("the program on the accessibility bus"));
    waitFor([this] { return m_bus->states(m_bus->children(m_root).value(0)).has(AccessibleState::Active); },
            QStringLiteral("the main window"));
}

SpokenProgram::~SpokenProgram() {
    m_bus.reset();
    end(m_program);
    end(m_session); // the accessibility bus and its registry end with it
}

void SpokenProgram::startSession() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("memory")); // nobody's settings
    m_session.setProcessEnvironment(environment);
    m_session.setStandardErrorFile(QProcess::nullDevice()); // or what it starts keeps the pipe open
    startAttached(
        m_session, QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    while (!m_session.canReadLine())
        if (!m_session.waitForReadyRead(Patience))
            throw InputError(QStringLiteral("dbus-daemon does not tell its address"));
    m_sessionAddress = QString::fromUtf8(m_session.readLine()).trimmed();
}

void SpokenProgram::startProgram() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_sessionAddress);
    environment.insert(QStringLiteral("QT_ACCESSIBILITY"), QStringLiteral("1"));
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    m_program.setProcessEnvironment(environment);
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    startAttached(m_program, QStringLiteral(OVRANO_PROGRAM), {});
}

void SpokenProgram::waitFor(const std::function<bool()>& condition, const QString& what) {
    QString lastError;
    const auto holds = [&] {
        try {
            return condition();
        } catch (const InputError& error) {
            lastError = QString::fromUtf8(error.what());
            return false;
        }
    };
    if (!QTest::qWaitFor(holds, Patience))
        throw InputError(QStringLiteral("waited in vain for %1 (%2)").arg(what, lastError));
}

AccessibleObject SpokenProgram::window(const QString& title) {
    AccessibleAddress found;
    const auto isActive = [&] {
        for (const AccessibleAddress& window : m_bus->children(m_root))
            if (m_bus->name(window) == title && m_bus->states(window).has(AccessibleState::Active)) {
                found = window;
                return true;
            }
        return false;
    };
    waitFor(isActive, title);
    AccessibleObject told;
    waitFor(
        [&] {
            told = m_bus->read(found);
            return true;
        },
        QStringLiteral("what is in ") + title);
    return told;
}

AccessibleObject SpokenProgram::mainWindow() {
    return m_bus->read(m_bus->children(m_root).value(0));
}

AccessibleObject SpokenProgram::openMenu(QChar letter, const QString& title) {
    AccessibleObject menu = find(mainWindow(), QStringLiteral("menu item ") + title);
    keys.strike(Qt::ALT | static_cast<Qt::Key>(letter.unicode()));
    const auto isOpen = [&] {
        menu = m_bus->read(menu.address);
        return !menu.children.empty();
    };
    waitFor(isOpen, QStringLiteral("the menu ") + title);
    return menu;
}

void SpokenProgram::closeMenu(const AccessibleObject& menu) {
    keys.strike(Qt::Key_Escape);
    waitForState(menu.children.front(), AccessibleState::Showing, false);
    keys.strike(Qt::Key_Escape);
    waitForState(menu, AccessibleState::Focused, false);
}

void SpokenProgram::waitForState(const AccessibleObject& object, AccessibleState state, bool wanted) {
    waitFor([&] { return m_bus->states(object.address).has(state) == wanted; },
            QStringLiteral("state %1 of %2 to be %3")
                .arg(static_cast<int>(state))
                .arg(object.spoken(), wanted ? QStringLiteral("set") : QStringLiteral("cleared")));
}

int SpokenProgram::waitForFocus(const std::vector<AccessibleObject>& controls, std::optional<int> before) {
    int focused = -1;
    const auto isElsewhere = [&] {
        for (std::size_t i = 0; i < controls.size(); ++i)
            if (m_bus->states(controls.at(i).address).has(AccessibleState::Focused))
                focused = static_cast<int>(i);
        return focused >= 0 && focused != before;
    };
    waitFor(isElsewhere, before ? QStringLiteral("the keyboard to leave ") +
                                      controls.at(static_cast<std::size_t>(*before)).spoken()
                                : QStringLiteral("a control with the keyboard"));
    return focused;
}

} // namespace ovrano::testing
