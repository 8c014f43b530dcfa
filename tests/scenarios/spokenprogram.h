#pragma once

#include "scenarios/accessibilitybus.h"
#include "support/blindinput.h"

#include <QProcess>

#include <functional>
#include <optional>

namespace ovrano::testing {

/// The installed program, run as it is started by somebody who works it with a keyboard and a screen reader:
/// in a process and a session of its own, known only by what it tells over the accessibility bus.
class SpokenProgram {
public:
    /// Starts session and program, and waits until the main window is there.
    SpokenProgram();
    Q_DISABLE_COPY_MOVE(SpokenProgram)
    ~SpokenProgram();

    BlindInput keys;

    AccessibilityBus& bus() { return *m_bus; }

    /// Waits until a condition holds; an object that does not answer is waited for, too.
    void waitFor(const std::function<bool()>& condition, const QString& what);
    /// Waits until a window with a title has the keyboard, and gives all that it shows.
    AccessibleObject window(const QString& title);
    /// The main window, which may be behind a dialog.
    AccessibleObject mainWindow();
    void waitForState(const AccessibleObject& object, AccessibleState state, bool wanted);
    /// Waits until one of some controls has the keyboard that is not the one that had it, and tells which.
    int waitForFocus(const std::vector<AccessibleObject>& controls, std::optional<int> before);
    /// Opens a menu of the bar by its letter; gives its title in the bar with what it shows.
    AccessibleObject openMenu(QChar letter, const QString& title);
    /// Closes it and leaves the bar.
    void closeMenu(const AccessibleObject& menu);

private:
    void startSession();
    void startProgram();

    QProcess m_session;
    QString m_sessionAddress;
    QProcess m_program;
    std::optional<AccessibilityBus> m_bus;
    AccessibleAddress m_root;
};

} // namespace ovrano::testing
