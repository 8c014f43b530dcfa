// A program that owns the clipboard of an X server and does not keep what it announces.
//
//   clipboardowner refuses TYPE    announces a type and gives nothing
//   clipboardowner garbles TYPE    gives bytes that are no such thing
//   clipboardowner vanishes TYPE   begins to give megabytes and ends in the middle
//   clipboardowner mutters TYPE    announces a type and never answers when it is asked for
//   clipboardowner silent TYPE     never answers at all
//
// Says "ready" when it owns the clipboard and ends when it loses it.

#include "selectionclient.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

class Owner {
public:
    Owner(std::string behaviour, std::string_view type)
        : m_behaviour(std::move(behaviour))
        , m_type(m_client.atom(type)) {}

    void serve() {
        m_client.own(m_client.atom("CLIPBOARD"));
        SelectionClient::announce();
        while (const auto event = m_client.wait()) {
            const int kind = SelectionClient::kindOf(*event);
            if (kind == XCB_SELECTION_CLEAR)
                return;
            if (kind == XCB_SELECTION_REQUEST &&
                !answer(reinterpret_cast<const xcb_selection_request_event_t&>(*event)))
                return;
        }
    }

private:
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
            m_client.put(request, XCB_ATOM_ATOM, 32, offered.size(), offered.data());
        } else if (request.target == m_type && m_behaviour == "garbles") {
            m_client.put(request, m_type, 8, Garbage.size(), Garbage.data());
        } else if (request.target == m_type && m_behaviour == "vanishes") {
            m_client.put(request, m_incremental, 32, 1, &Announced);
            goOn = false;
        } else {
            property = XCB_ATOM_NONE;
        }
        m_client.notify(request, property);
        return goOn;
    }

    const std::string m_behaviour;
    SelectionClient m_client;
    const xcb_atom_t m_type;
    const xcb_atom_t m_targets = m_client.atom("TARGETS");
    const xcb_atom_t m_incremental = m_client.atom("INCR");
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    Owner(argv[1], argv[2]).serve();
}
