#pragma once

#include <QKeyCombination>

#include <deque>
#include <map>
#include <vector>
#include <xcb/xcb.h>

namespace ovrano::testing {

/// Where each character and named key is on the X server's keyboard.
class X11Keyboard {
public:
    struct Stroke {
        xcb_keycode_t code = 0;
        bool shift = false;
    };

    explicit X11Keyboard(xcb_connection_t* connection);
    /// Takes the characters off the spare keys again.
    ~X11Keyboard();
    Q_DISABLE_COPY_MOVE(X11Keyboard)

    /// The key for a character. One that the layout does not have is put on a spare key, in place of the one
    /// that has been there longest when there is none left; so strike it before asking for many more.
    Stroke forCharacter(char32_t character);

    /// The key for a named key or a letter, without its modifiers. Throws InputError for one that has no
    /// name here.
    Stroke forKey(Qt::Key key);

    /// The keys to hold one after the other for a stroke with modifiers: Control, Alt, Shift, the key.
    std::vector<xcb_keycode_t> chord(Stroke stroke, Qt::KeyboardModifiers modifiers);

private:
    Stroke find(xcb_keysym_t symbol);
    Stroke bindSpare(xcb_keysym_t symbol);
    bool bind(xcb_keycode_t code, xcb_keysym_t symbol);
    void readLayout();

    xcb_connection_t* m_connection;
    std::map<xcb_keysym_t, Stroke> m_strokes;
    struct Spare {
        xcb_keycode_t code;
        xcb_keysym_t symbol; // 0 while it is free
    };
    std::deque<Spare> m_spares; // the one to be used next in front
};

} // namespace ovrano::testing
