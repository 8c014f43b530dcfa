#include "scenarios/blindkeys.h"

#include <QString>

#include <algorithm>
#include <vector>
#include <xcb/xtest.h>

namespace ovrano::testing {

BlindKeys::BlindKeys()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_keyboard(m_connection.get()) {}

void BlindKeys::send(std::uint8_t type, xcb_keycode_t code) {
    xcb_test_fake_input(m_connection.get(), type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

void BlindKeys::strike(QKeyCombination keys) {
    strike(m_keyboard.forKey(keys.key()), keys.keyboardModifiers());
}

void BlindKeys::type(const QString& text) {
    for (const char32_t character : text.toStdU32String())
        strike(m_keyboard.forCharacter(character), Qt::NoModifier);
}

void BlindKeys::strike(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers) {
    std::vector<xcb_keycode_t> codes;
    if (modifiers.testFlag(Qt::ControlModifier))
        codes.push_back(m_keyboard.forKey(Qt::Key_Control).code);
    if (modifiers.testFlag(Qt::AltModifier))
        codes.push_back(m_keyboard.forKey(Qt::Key_Alt).code);
    if (modifiers.testFlag(Qt::ShiftModifier) || stroke.shift)
        codes.push_back(m_keyboard.forKey(Qt::Key_Shift).code);
    codes.push_back(stroke.code);
    for (const xcb_keycode_t code : codes)
        send(XCB_KEY_PRESS, code);
    std::for_each(codes.rbegin(), codes.rend(), [this](xcb_keycode_t code) { send(XCB_KEY_RELEASE, code); });
    xcb_flush(m_connection.get());
}

} // namespace ovrano::testing
