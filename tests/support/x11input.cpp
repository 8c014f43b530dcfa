#include "support/x11input.h"

#include "support/guithread.h"
#include "support/inputerror.h"
#include "support/x11reply.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyleHints>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <xcb/xtest.h>

namespace ovrano::testing {

namespace {

std::uint8_t buttonNumber(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::MiddleButton:
        return 2;
    case Qt::RightButton:
        return 3;
    default:
        throw InputError(QStringLiteral("the simulated mouse has three buttons"));
    }
}

xcb_connection_t* connect() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0) {
        xcb_disconnect(connection);
        throw InputError(QStringLiteral("no X server answers at $DISPLAY"));
    }
    return connection;
}

/// Lets the program finish what an arrived event started, or come to wait in a dialog that it opened.
void settle() {
    if (isGuiThread())
        QCoreApplication::processEvents();
    else
        inGui([] {});
}

} // namespace

X11Input::X11Input()
    : m_connection(connect())
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root)
    , m_scale(QGuiApplication::primaryScreen()->devicePixelRatio())
    , m_keyboard(m_connection.get()) {
    const xcb_query_extension_reply_t* extension = xcb_get_extension_data(m_connection.get(), &xcb_test_id);
    if (!extension || !extension->present)
        throw InputError(QStringLiteral("the X server lacks the extension XTEST"));
}

X11Input::~X11Input() {
    for (const std::uint8_t button : m_down)
        send(Input::ButtonRelease, button);
    synchronise();
}

void X11Input::send(Input type, std::uint8_t detail, QPoint position) {
    xcb_test_fake_input(m_connection.get(), static_cast<std::uint8_t>(type), detail, XCB_CURRENT_TIME, m_root,
                        static_cast<std::int16_t>(position.x()), static_cast<std::int16_t>(position.y()), 0);
}

QPoint X11Input::pointer() {
    const auto request = xcb_query_pointer(m_connection.get(), m_root);
    const Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(m_connection.get(), request, nullptr));
    if (!reply)
        throw InputError(QStringLiteral("the X server is gone"));
    return {reply->root_x, reply->root_y};
}

/// Returns when the server has done everything that was sent: it answers in order.
void X11Input::synchronise() {
    std::free(
        xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
}

void X11Input::await(const std::function<bool()>& arrived, const QString& what) {
    if (!waitUntil(arrived, m_patience))
        throw InputError(what + QStringLiteral(" reached no window of the program"));
    settle();
}

void X11Input::deliver(const std::vector<Event>& events, const QString& what) {
    constexpr std::array types = {Input::KeyPress, Input::KeyRelease, Input::ButtonPress,
                                  Input::ButtonRelease};
    std::array<int, types.size()> expected{};
    for (std::size_t i = 0; i < types.size(); ++i)
        expected[i] = m_watch.count(types[i]) +
                      static_cast<int>(std::count_if(events.begin(), events.end(), [&](const Event& event) {
                          return event.type == types[i];
                      }));
    for (const Event& event : events)
        send(event.type, event.detail);
    synchronise();
    await(
        [&] {
            for (std::size_t i = 0; i < types.size(); ++i)
                if (m_watch.count(types[i]) < expected[i])
                    return false;
            return true;
        },
        what);
}

std::optional<QPoint> X11Input::cornerOnServer(std::uint32_t window) {
    const auto asked = xcb_translate_coordinates(m_connection.get(), window, m_root, 0, 0);
    const Reply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(m_connection.get(), asked, nullptr));
    return corner ? std::optional(QPoint(corner->dst_x, corner->dst_y)) : std::nullopt;
}

QPoint X11Input::onServer(QPoint global) {
    // From the corner of the window that is there: a window need not begin with a whole pixel of the program.
    const auto [window, inside] = inGui([&] {
        const QWindow* found = QGuiApplication::topLevelAt(global);
        return found ? std::pair(static_cast<std::uint32_t>(found->winId()), global - found->position())
                     : std::pair(std::uint32_t{0}, QPoint());
    });
    const auto corner = window ? cornerOnServer(window) : std::nullopt;
    const QPointF middle = (QPointF(corner ? inside : global) + QPointF(0.5, 0.5)) * m_scale;
    return corner.value_or(QPoint(0, 0)) + QPoint(qFloor(middle.x()), qFloor(middle.y()));
}

bool X11Input::isInPlace(const QWindow& window) {
    xcb_connection_t* server = m_connection.get();
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto askState = xcb_get_window_attributes(server, id);
    const auto askSize = xcb_get_geometry(server, id);
    const Reply<xcb_get_window_attributes_reply_t> state(
        xcb_get_window_attributes_reply(server, askState, nullptr));
    const Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(server, askSize, nullptr));
    const auto place = cornerOnServer(id);
    if (!state || !size || !place || state->map_state != XCB_MAP_STATE_VIEWABLE)
        return false;
    const QRect wanted(window.position() * m_scale, window.size() * m_scale);
    const QRect found(*place, QSize(size->width, size->height));
    // The server's pixels need not make up whole ones of the program.
    const auto near = [this](int a, int b) { return std::abs(a - b) < m_scale; };
    return near(wanted.left(), found.left()) && near(wanted.top(), found.top()) &&
           near(wanted.width(), found.width()) && near(wanted.height(), found.height());
}

void X11Input::moveTo(QPoint global) {
    const QPoint there = onServer(global);
    if (pointer() == there)
        return;
    send(Input::Motion, 0, there);
    synchronise();
    const bool seen =
        !m_down.empty() || inGui([&] { return QGuiApplication::topLevelAt(global) != nullptr; });
    if (seen)
        await([&] { return m_watch.lastPosition() == there; },
              QStringLiteral("a move of the mouse to %1, %2").arg(global.x()).arg(global.y()));
}

void X11Input::press(Qt::MouseButton button) {
    m_down.insert(buttonNumber(button));
    m_sincePress.start();
    deliver({{Input::ButtonPress, buttonNumber(button)}}, QStringLiteral("a press of a mouse button"));
}

void X11Input::release(Qt::MouseButton button) {
    m_down.erase(buttonNumber(button));
    deliver({{Input::ButtonRelease, buttonNumber(button)}}, QStringLiteral("a release of a mouse button"));
}

/// A second click that soon and that near would count as a double click.
void X11Input::outwaitDoubleClick(QPoint global) {
    constexpr int Far = 40; // pixels, more than any style takes for the same place
    const auto interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    if (m_sincePress.isValid() && (global - m_pressedAt).manhattanLength() < Far)
        waitUntil([&] { return m_sincePress.hasExpired(interval); }, 2 * interval);
    m_pressedAt = global;
}

void X11Input::click(QPoint global, Qt::MouseButton button) {
    moveTo(global);
    outwaitDoubleClick(global);
    press(button);
    release(button);
}

void X11Input::doubleClick(QPoint global) {
    click(global);
    press();
    release();
}

void X11Input::drag(QPoint from, QPoint to, int steps) {
    moveTo(from);
    press();
    for (int step = 1; step <= steps; ++step)
        moveTo(from + (to - from) * step / steps);
    release();
}

void X11Input::wheel(QPoint global, int notches) {
    const std::uint8_t button = notches > 0 ? 4 : 5;
    moveTo(global);
    for (int i = 0; i < std::abs(notches); ++i)
        deliver({{Input::ButtonPress, button}, {Input::ButtonRelease, button}},
                QStringLiteral("a turn of the mouse wheel"));
}

void X11Input::clickFrame(QPoint global) {
    moveTo(global);
    clickUnseen();
}

void X11Input::clickUnseen() {
    send(Input::ButtonPress, 1);
    send(Input::ButtonRelease, 1);
    synchronise();
}

void X11Input::stroke(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers, const QString& what) {
    const std::vector<xcb_keycode_t> codes = m_keyboard.chord(stroke, modifiers);
    std::vector<Event> events;
    for (const xcb_keycode_t code : codes)
        events.push_back({Input::KeyPress, code});
    std::for_each(codes.rbegin(), codes.rend(), [&](xcb_keycode_t code) {
        events.push_back({Input::KeyRelease, code});
    });
    // A key for a window that a dialog blocks would be lost; a list that has popped up belongs to the dialog.
    const auto focused = [] {
        const QWindow* focus = QGuiApplication::focusWindow();
        const QWindow* modal = QGuiApplication::modalWindow();
        return focus && (!modal || focus == modal || focus->type() == Qt::Popup);
    };
    await(focused, what + QStringLiteral(" had nowhere to go: it"));
    deliver(events, what);
}

void X11Input::type(const QString& text) {
    for (const char32_t character : text.toStdU32String())
        stroke(m_keyboard.forCharacter(character), Qt::NoModifier,
               QStringLiteral("the key for \"%1\"").arg(QString::fromUcs4(&character, 1)));
}

void X11Input::strike(QKeyCombination keys) {
    stroke(m_keyboard.forKey(keys.key()), keys.keyboardModifiers(),
           QStringLiteral("the key 0x%1").arg(keys.toCombined(), 0, 16));
}

} // namespace ovrano::testing
