#include "support/x11keyboard.h"

#include "support/inputerror.h"
#include "support/x11reply.h"

#include <array>
#include <span>

namespace ovrano::testing {

namespace {

/// Symbols of Latin-1 characters are their codes, all others are their code points with this bit.
constexpr xcb_keysym_t UnicodeSymbol = 0x01000000;

xcb_keysym_t symbolOf(char32_t character) {
    switch (character) {
    case U'\n':
        return 0xFF0D;
    case U'\t':
        return 0xFF09;
    default:
        return character < 0x100 ? character : character | UnicodeSymbol;
    }
}

/// Symbols of the keys that type no character, from the X protocol's table of keyboard symbols.
const std::map<Qt::Key, xcb_keysym_t>& namedKeys() {
    static const std::map<Qt::Key, xcb_keysym_t> keys = {
        {Qt::Key_Backspace, 0xFF08}, {Qt::Key_Tab, 0xFF09},      {Qt::Key_Return, 0xFF0D},
        {Qt::Key_Escape, 0xFF1B},    {Qt::Key_Home, 0xFF50},     {Qt::Key_Left, 0xFF51},
        {Qt::Key_Up, 0xFF52},        {Qt::Key_Right, 0xFF53},    {Qt::Key_Down, 0xFF54},
        {Qt::Key_PageUp, 0xFF55},    {Qt::Key_PageDown, 0xFF56}, {Qt::Key_End, 0xFF57},
        {Qt::Key_Insert, 0xFF63},    {Qt::Key_Delete, 0xFFFF},   {Qt::Key_Menu, 0xFF67},
        {Qt::Key_Shift, 0xFFE1},     {Qt::Key_Control, 0xFFE3},  {Qt::Key_Alt, 0xFFE9},
        {Qt::Key_F1, 0xFFBE},        {Qt::Key_F4, 0xFFC1},       {Qt::Key_F10, 0xFFC7},
    };
    return keys;
}

bool isEmpty(std::span<const xcb_keysym_t> symbols) {
    return std::all_of(symbols.begin(), symbols.end(), [](xcb_keysym_t symbol) { return symbol == 0; });
}

} // namespace

X11Keyboard::X11Keyboard(xcb_connection_t* connection)
    : m_connection(connection) {
    readLayout();
}

X11Keyboard::~X11Keyboard() {
    for (const Spare& spare : m_spares)
        if (spare.symbol != 0)
            bind(spare.code, 0);
}

void X11Keyboard::readLayout() {
    const xcb_setup_t* setup = xcb_get_setup(m_connection);
    const std::size_t first = setup->min_keycode;
    const std::size_t count = setup->max_keycode - first + 1;
    const auto request =
        xcb_get_keyboard_mapping(m_connection, setup->min_keycode, static_cast<std::uint8_t>(count));
    const Reply<xcb_get_keyboard_mapping_reply_t> reply(
        xcb_get_keyboard_mapping_reply(m_connection, request, nullptr));
    if (!reply)
        throw InputError(QStringLiteral("the X server does not tell its keyboard's layout"));
    const std::size_t width = reply->keysyms_per_keycode;
    const std::span<const xcb_keysym_t> all(xcb_get_keyboard_mapping_keysyms(reply.get()), count * width);
    for (std::size_t key = 0; key < count; ++key) {
        const auto code = static_cast<xcb_keycode_t>(first + key);
        const auto symbols = all.subspan(key * width, width);
        if (isEmpty(symbols))
            m_spares.push_back({code, 0});
        // The first two columns are the plain and the shifted character; what needs a third is left out.
        for (std::size_t column = 0; column < std::min<std::size_t>(width, 2); ++column)
            if (symbols[column] != 0)
                m_strokes.try_emplace(symbols[column], Stroke{code, column == 1});
    }
}

X11Keyboard::Stroke X11Keyboard::forCharacter(char32_t character) {
    return find(symbolOf(character));
}

X11Keyboard::Stroke X11Keyboard::forKey(Qt::Key key) {
    if (const auto named = namedKeys().find(key); named != namedKeys().end())
        return find(named->second);
    if (key < Qt::Key_Space || key > Qt::Key_ydiaeresis)
        throw InputError(QStringLiteral("no key is known for code 0x%1").arg(static_cast<int>(key), 0, 16));
    // A letter's key is the one of its small character; Shift is the combination's affair.
    return find(QChar::toLower(static_cast<char32_t>(key)));
}

std::vector<xcb_keycode_t> X11Keyboard::chord(Stroke stroke, Qt::KeyboardModifiers modifiers) {
    if (stroke.shift)
        modifiers |= Qt::ShiftModifier;
    constexpr std::array<std::pair<Qt::KeyboardModifier, Qt::Key>, 3> held = {
        {{Qt::ControlModifier, Qt::Key_Control},
         {Qt::AltModifier, Qt::Key_Alt},
         {Qt::ShiftModifier, Qt::Key_Shift}}};
    std::vector<xcb_keycode_t> codes;
    for (const auto& [modifier, key] : held)
        if (modifiers.testFlag(modifier))
            codes.push_back(forKey(key).code);
    codes.push_back(stroke.code);
    return codes;
}

X11Keyboard::Stroke X11Keyboard::find(xcb_keysym_t symbol) {
    const auto found = m_strokes.find(symbol);
    return found != m_strokes.end() ? found->second : bindSpare(symbol);
}

bool X11Keyboard::bind(xcb_keycode_t code, xcb_keysym_t symbol) {
    const std::array<xcb_keysym_t, 2> symbols = {symbol, symbol};
    const auto request = xcb_change_keyboard_mapping_checked(
        m_connection, 1, code, static_cast<std::uint8_t>(symbols.size()), symbols.data());
    const Reply<xcb_generic_error_t> failure(xcb_request_check(m_connection, request));
    return failure == nullptr;
}

X11Keyboard::Stroke X11Keyboard::bindSpare(xcb_keysym_t symbol) {
    if (m_spares.empty() || !bind(m_spares.front().code, symbol))
        throw InputError(QStringLiteral("the X server has no spare key for symbol 0x%1").arg(symbol, 0, 16));
    const Spare spare{m_spares.front().code, symbol};
    m_strokes.erase(m_spares.front().symbol);
    m_spares.pop_front();
    m_spares.push_back(spare);
    return m_strokes.emplace(symbol, Stroke{spare.code, false}).first->second;
}

} // namespace ovrano::testing
