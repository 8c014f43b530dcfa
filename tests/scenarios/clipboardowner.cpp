// A program that owns the clipboard of an X server and does not keep what it announces.
//
//   clipboardowner refuses TYPE    announces a type and gives nothing
//   clipboardowner garbles TYPE    gives bytes that are no such thing
//   clipboardowner vanishes TYPE   begins to give megabytes and ends in the middle
//   clipboardowner mutters TYPE    announces a type and never answers when it is asked for
//   clipboardowner silent TYPE     never answers at all
//
// Says "ready" when it owns the clipboard and ends when it loses it.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <xcb/xcb.h>

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

class Owner {
public:
    Owner(std::string behaviour, std::string_view type)
        : m_behaviour(std::move(behaviour))
        , m_connection(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_window = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        m_type = atom(type);
        m_targets = atom("TARGETS");
        m_incremental = atom("INCR");
        xcb_set_selection_owner(m_connection, m_window, atom("CLIPBOARD"), XCB_CURRENT_TIME);
        xcb_flush(m_connection);
        std::puts("ready");
        std::fflush(stdout);
    }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner() { xcb_disconnect(m_connection); }

    void serve() {
        while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_wait_for_event(m_connection)}) {
            const int kind = event->response_type & 0x7F;
            if (kind == XCB_SELECTION_CLEAR)
                return;
            if (kind == XCB_SELECTION_REQUEST &&
                !answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event)))
                return;
        }
    }

private:
    xcb_atom_t atom(std::string_view name) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
            xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply->atom;
    }

    void put(const xcb_selection_request_event_t& request, xcb_atom_t type, std::uint8_t bits,
             std::uint32_t count, const void* data) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, type,
                            bits, count, data);
    }

    /// False when the program is to end.
    bool answer(const xcb_selection_request_event_t& request) {
        constexpr std::string_view Garbage = "This is no picture.";
        constexpr std::uint32_t Announced = 10'000'000;
        xcb_atom_t property = request.property;
        bool goOn = true;
        if (m_behaviour == "silent" || (m_behaviour == "mutters" && request.target == m_type))
            return true;
        if (request.target == m_targets) {
            const std::array offered = {m_targets, m_type};
            put(request, XCB_ATOM_ATOM, 32, offered.size(), offered.data());
        } else if (request.target == m_type && m_behaviour == "garbles") {
            put(request, m_type, 8, Garbage.size(), Garbage.data());
        } else if (request.target == m_type && m_behaviour == "vanishes") {
            put(request, m_incremental, 32, 1, &Announced);
            goOn = false;
        } else {
            property = XCB_ATOM_NONE;
        }
        notify(request, property);
        return goOn;
    }

    void notify(const xcb_selection_request_event_t& request, xcb_atom_t property) {
        xcb_selection_notify_event_t notice{};
        notice.response_type = XCB_SELECTION_NOTIFY;
        notice.time = request.time;
        notice.requestor = request.requestor;
        notice.selection = request.selection;
        notice.target = request.target;
        notice.property = property;
        xcb_send_event(m_connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&notice));
        xcb_flush(m_connection);
    }

    std::string m_behaviour;
    xcb_connection_t* m_connection;
    xcb_window_t m_window = 0;
    xcb_atom_t m_type = 0;
    xcb_atom_t m_targets = 0;
    xcb_atom_t m_incremental = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    Owner(argv[1], argv[2]).serve();
}
