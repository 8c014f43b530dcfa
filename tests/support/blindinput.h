#pragma once

#include "support/x11keyboard.h"

#include <QPoint>
#include <QString>

#include <memory>
#include <xcb/xcb.h>

namespace ovrano::testing {

/// A mouse and a keyboard of somebody who does not look, or works a program in another process: gives the X
/// server events as hardware would (extension XTEST), waits for nothing and cannot tell when they have
/// arrived.
class BlindInput {
public:
    /// The numbers of a mouse's buttons on an X server.
    enum Button { Left = 1, Middle, Right, WheelUp, WheelDown, WheelLeft, WheelRight };

    /// Connects to $DISPLAY, which must be there.
    BlindInput();

    /// In pixels of the screen.
    void moveTo(QPoint position);
    void press(Button button);
    void release(Button button);

    /// Holds the modifiers, strikes the key, lets go.
    void strike(QKeyCombination keys);
    void type(const QString& text);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void strike(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers);
    void send(std::uint8_t type, std::uint8_t detail, QPoint position = {});

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root;
    X11Keyboard m_keyboard;
};

} // namespace ovrano::testing
