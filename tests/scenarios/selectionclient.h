#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

/// A client of the X server with a window that can own selections.
class SelectionClient {
public:
    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };
    template<typename Reply>
    using Owned = std::unique_ptr<Reply, Free>;

    SelectionClient()
        : connection(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        window = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    }
    SelectionClient(const SelectionClient&) = delete;
    SelectionClient& operator=(const SelectionClient&) = delete;
    ~SelectionClient() { xcb_disconnect(connection); }

    xcb_atom_t atom(std::string_view name) {
        const auto cookie =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
        return reply->atom;
    }

    void own(xcb_atom_t selection) {
        xcb_set_selection_owner(connection, window, selection, XCB_CURRENT_TIME);
        xcb_flush(connection);
    }

    /// Tells who started this program that it is ready.
    static void announce() {
        std::puts("ready");
        std::fflush(stdout);
    }

    void put(const xcb_selection_request_event_t& request, xcb_atom_t type, std::uint8_t bits,
             std::uint32_t count, const void* data) {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property, type,
                            bits, count, data);
    }

    /// Answers a request; XCB_ATOM_NONE refuses it.
    void notify(const xcb_selection_request_event_t& request, xcb_atom_t property) {
        xcb_selection_notify_event_t notice{};
        notice.response_type = XCB_SELECTION_NOTIFY;
        notice.time = request.time;
        notice.requestor = request.requestor;
        notice.selection = request.selection;
        notice.target = request.target;
        notice.property = property;
        xcb_send_event(connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&notice));
        xcb_flush(connection);
    }

    Owned<xcb_generic_event_t> wait() { return Owned<xcb_generic_event_t>{xcb_wait_for_event(connection)}; }
    static int kindOf(const xcb_generic_event_t& event) { return event.response_type & 0x7F; }

    xcb_connection_t* const connection;
    xcb_window_t window = 0;
};
