#pragma once

#include "support/x11keyboard.h"

#include <memory>
#include <xcb/xcb.h>

namespace ovrano::testing {

/// A keyboard for a program in another process: gives the X server the strokes as hardware would (extension
/// XTEST) and cannot tell when they have arrived.
class BlindKeys {
public:
    /// Connects to $DISPLAY, which must be there.
    BlindKeys();

    /// Holds the modifiers, strikes the key, lets go.
    void strike(QKeyCombination keys);
    void type(const QString& text);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    void strike(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers);
    void send(std::uint8_t type, xcb_keycode_t code);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    X11Keyboard m_keyboard;
};

} // namespace ovrano::testing
