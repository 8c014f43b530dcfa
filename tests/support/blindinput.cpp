#include "support/blindinput.h"

#include <algorithm>
#include <xcb/xtest.h>

namespace ovrano::testing {

BlindInput::BlindInput()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root)
    , m_keyboard(m_connection.get()) {}

void BlindInput::send(std::uint8_t type, std::uint8_t detail, QPoint position) {
    xcb_test_fake_input(m_connection.get(), type, detail, XCB_CURRENT_TIME, m_root,
                        static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()), 0);
}

void BlindInput::moveTo(QPoint position) {
    send(XCB_MOTION_NOTIFY, 0, position);
    xcb_flush(m_connection.get());
}

void BlindInput::press(Button button) {
    send(XCB_BUTTON_PRESS, button);
    xcb_flush(m_connection.get());
}

void BlindInput::release(Button button) {
    send(XCB_BUTTON_RELEASE, button);
    xcb_flush(m_connection.get());
}

void BlindInput::strike(QKeyCombination keys) {
    strike(m_keyboard.forKey(keys.key()), keys.keyboardModifiers());
}

void BlindInput::type(const QString& text) {
    for (const char32_t character : text.toStdU32String())
        strike(m_keyboard.forCharacter(character), Qt::NoModifier);
}

void BlindInput::strike(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers) {
    const std::vector<xcb_keycode_t> codes = m_keyboard.chord(stroke, modifiers);
    for (const xcb_keycode_t code : codes)
        send(XCB_KEY_PRESS, code);
    std::for_each(codes.rbegin(), codes.rend(), [&](xcb_keycode_t code) { send(XCB_KEY_RELEASE, code); });
    xcb_flush(m_connection.get());
}

} // namespace ovrano::testing
