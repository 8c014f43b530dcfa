// A clipboard manager that keeps one PNG picture: it takes it when its owner ends and asks for that, and
// offers it in the owner's stead.

#include "selectionclient.h"

#include <array>
#include <vector>

namespace {

class Keeper {
public:
    void serve() {
        m_client.own(m_manager);
        SelectionClient::announce();
        while (const auto event = m_client.wait())
            switch (SelectionClient::kindOf(*event)) {
            case XCB_SELECTION_REQUEST:
                answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event));
                break;
            case XCB_SELECTION_NOTIFY:
                take();
                break;
            default:
                break;
            }
    }

private:
    void answer(const xcb_selection_request_event_t& request) {
        if (request.selection == m_manager) {
            // The one who asks waits for the answer until the picture has been taken.
            m_pending = request;
            xcb_convert_selection(m_client.connection, m_client.window, m_clipboard, m_png, m_property,
                                  XCB_CURRENT_TIME);
            xcb_flush(m_client.connection);
        } else if (request.target == m_targets) {
            const std::array offered = {m_targets, m_png};
            m_client.put(request, XCB_ATOM_ATOM, 32, offered.size(), offered.data());
            m_client.notify(request, request.property);
        } else if (request.target == m_png) {
            m_client.put(request, m_png, 8, static_cast<std::uint32_t>(m_picture.size()), m_picture.data());
            m_client.notify(request, request.property);
        } else {
            m_client.notify(request, XCB_ATOM_NONE);
        }
    }

    void take() {
        constexpr std::uint32_t Enough = 1U << 20;
        const auto cookie = xcb_get_property(m_client.connection, 1, m_client.window, m_property,
                                             XCB_GET_PROPERTY_TYPE_ANY, 0, Enough);
        const SelectionClient::Owned<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_client.connection, cookie, nullptr));
        const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
        m_picture.assign(bytes, bytes + xcb_get_property_value_length(reply.get()));
        m_client.own(m_clipboard);
        m_client.notify(m_pending, m_pending.property);
    }

    SelectionClient m_client;
    const xcb_atom_t m_manager = m_client.atom("CLIPBOARD_MANAGER");
    const xcb_atom_t m_clipboard = m_client.atom("CLIPBOARD");
    const xcb_atom_t m_targets = m_client.atom("TARGETS");
    const xcb_atom_t m_png = m_client.atom("image/png");
    const xcb_atom_t m_property = m_client.atom("KEPT");
    xcb_selection_request_event_t m_pending{};
    std::vector<char> m_picture;
};

} // namespace

int main() {
    Keeper().serve();
}
