#include "app/windowwatch.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>

namespace ovrano::bench {

namespace {

constexpr int Patience = 30'000;     // milliseconds
constexpr unsigned long Pause = 500; // microseconds between two looks

/// What the X library allocates.
template<typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template<typename Reply>
Owned<Reply> owned(Reply* reply) {
    return {reply, &std::free};
}

template<typename Condition>
void waitFor(const char* what, const Condition& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > Patience)
            qFatal("waited in vain until %s", what);
        QThread::usleep(Pause);
    }
}

} // namespace

WindowWatch::WindowWatch()
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_root(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root)
    , m_active(atom("_NET_ACTIVE_WINDOW"))
    , m_windows(atom("_NET_CLIENT_LIST"))
    , m_protocols(atom("WM_PROTOCOLS"))
    , m_ping(atom("_NET_WM_PING")) {
    // Answers go to the root, to whom looks out for changes of its windows; from Qt, of itself.
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection);
}

WindowWatch::~WindowWatch() {
    xcb_disconnect(m_connection);
}

xcb_atom_t WindowWatch::atom(const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const auto reply =
        owned(xcb_intern_atom_reply(m_connection, xcb_intern_atom(m_connection, 0, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

/// The first of the windows that a property of the root names; 0 when there is none.
std::uint32_t WindowWatch::firstValue(xcb_atom_t property) {
    const auto cookie = xcb_get_property(m_connection, 0, m_root, property, XCB_ATOM_WINDOW, 0, 1);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) < 4)
        return XCB_WINDOW_NONE;
    return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

xcb_window_t WindowWatch::activeWindow() {
    return firstValue(m_active);
}

bool WindowWatch::hasWindows() {
    return firstValue(m_windows) != XCB_WINDOW_NONE;
}

void WindowWatch::ask(xcb_window_t window) {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_protocols;
    message.data.data32[0] = m_ping;
    message.data.data32[1] = XCB_CURRENT_TIME;
    message.data.data32[2] = window;
    xcb_send_event(m_connection, 0, window, 0, reinterpret_cast<const char*>(&message));
    xcb_flush(m_connection);
}

bool WindowWatch::hasAnswered(xcb_window_t window) {
    bool answered = false;
    while (const auto event = owned(xcb_poll_for_event(m_connection))) {
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE)
            continue;
        const auto* message = reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        answered |= message->type == m_protocols && message->data.data32[0] == m_ping &&
                    message->data.data32[2] == window;
    }
    return answered;
}

/// An unpainted window has one colour; letters bring several.
bool WindowWatch::showsSomething(xcb_window_t window) {
    constexpr std::size_t Enough = 3;
    const auto size =
        owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
    if (!size)
        return false;
    const auto cookie = xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, size->width,
                                      std::min<std::uint16_t>(size->height, 120), ~0U);
    const auto image = owned(xcb_get_image_reply(m_connection, cookie, nullptr));
    if (!image)
        return false;
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image.get()));
    return std::set<std::uint32_t>(pixels, pixels + xcb_get_image_data_length(image.get()) / 4).size() >=
           Enough;
}

void WindowWatch::waitUntilUsable() {
    waitFor("a window is active", [&] { return activeWindow() != XCB_WINDOW_NONE; });
    const xcb_window_t window = activeWindow();
    ask(window);
    waitFor("the program answers", [&] { return hasAnswered(window); });
    waitFor("the window shows something", [&] { return showsSomething(window); });
}

double WindowWatch::secondsUntilUsable(const QString& program) {
    waitFor("no window is left", [&] { return !hasWindows(); });
    // The last program's window stays there until there is another, and that may have the very same number.
    xcb_delete_property(m_connection, m_root, m_active);
    hasAnswered(XCB_WINDOW_NONE); // forgets what is waiting
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, QStringList());
    waitUntilUsable();
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    process.kill();
    process.waitForFinished();
    waitFor("no window is left", [&] { return !hasWindows(); });
    return seconds;
}

} // namespace ovrano::bench
