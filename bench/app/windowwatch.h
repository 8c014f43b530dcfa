#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <xcb/xcb.h>

namespace ovrano::bench {

/// Watches how a program's first window comes up on an X display with a window manager.
class WindowWatch {
public:
    WindowWatch();
    Q_DISABLE_COPY_MOVE(WindowWatch)
    ~WindowWatch();

    /// Starts a program and gives the seconds until its window can be used: it is the active one, shows
    /// something, and the program answers the window manager's question whether it is alive, so that it
    /// would obey a key as well. The program is ended afterwards.
    double secondsUntilUsable(const QString& program);

private:
    xcb_atom_t atom(const char* name);
    xcb_window_t activeWindow();
    bool hasWindows();
    std::uint32_t firstValue(xcb_atom_t property);
    void ask(xcb_window_t window);
    bool hasAnswered(xcb_window_t window);
    bool showsSomething(xcb_window_t window);
    void waitUntilUsable();

    xcb_connection_t* m_connection;
    xcb_window_t m_root;
    xcb_atom_t m_active;
    xcb_atom_t m_windows;
    xcb_atom_t m_protocols;
    xcb_atom_t m_ping;
};

} // namespace ovrano::bench
