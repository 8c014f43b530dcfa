#include "platform/selectiontransfer_x11.h"

#include <cstdlib>
#include <memory>
#include <poll.h>

namespace ovrano {

namespace {

constexpr qsizetype MostBytes = qsizetype{1400}
                                << 20;             // beyond any picture that is opened, short of 16-bit ones
constexpr qsizetype LeastBytesPerMillisecond = 50; // of an owner that is not stalling
constexpr int LookAfterMilliseconds = 4;           // for what the window has to do
constexpr uint32_t PropertyWords = 1U << 16;       // fetched at once, 4 bytes each
constexpr std::size_t MostNames = 500;
constexpr int TypeBits = 0x7F; // of an event's type; the other one says who sent it

struct Free {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};
template<typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

} // namespace

SelectionTransfer::SelectionTransfer()
    : m_connection(xcb_connect(nullptr, nullptr)) {
    if (!isConnected())
        return;
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_window = xcb_generate_id(m_connection);
    constexpr uint32_t Events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &Events);
    m_incremental = atom("INCR");
    m_property = atom("OVRANO_CLIPBOARD");
    m_selection = atom("CLIPBOARD");
    watchOwner();
}

SelectionTransfer::~SelectionTransfer() {
    xcb_disconnect(m_connection);
}

xcb_atom_t SelectionTransfer::atom(const QByteArray& name) {
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QStringList SelectionTransfer::namesOf(const std::vector<xcb_atom_t>& atoms) {
    std::vector<xcb_get_atom_name_cookie_t> cookies;
    for (std::size_t i = 0; i < std::min(atoms.size(), MostNames); ++i)
        cookies.push_back(xcb_get_atom_name(m_connection, atoms[i]));
    QStringList names;
    for (const auto cookie : cookies) {
        const Owned<xcb_get_atom_name_reply_t> reply(xcb_get_atom_name_reply(m_connection, cookie, nullptr));
        if (reply)
            names.append(QString::fromLatin1(xcb_get_atom_name_name(reply.get()),
                                             xcb_get_atom_name_name_length(reply.get())));
    }
    return names;
}

/// Asks to be told when the owner's window goes.
void SelectionTransfer::watchOwner() {
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, m_selection), nullptr));
    if (!reply)
        return;
    m_owner = reply->owner;
    constexpr uint32_t Events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    if (m_owner != XCB_WINDOW_NONE)
        xcb_change_window_attributes(m_connection, m_owner, XCB_CW_EVENT_MASK, &Events);
}

QByteArray SelectionTransfer::fetch(const QByteArray& target, int patience) {
    if (!isConnected() || m_owner == XCB_WINDOW_NONE)
        return {};
    xcb_convert_selection(m_connection, m_window, m_selection, atom(target), m_property, XCB_CURRENT_TIME);
    m_sinceStart.start();
    m_sinceProgress.start();
    while (!m_ended && waitForEvent(patience))
        while (const Owned<xcb_generic_event_t> event{m_ended ? nullptr : xcb_poll_for_event(m_connection)}) {
            handle(*event);
            m_yield();
        }
    return m_complete ? joined() : QByteArray();
}

/// False when there will be none any more, or not in time.
bool SelectionTransfer::waitForEvent(int patience) {
    xcb_flush(m_connection);
    pollfd readable{xcb_get_file_descriptor(m_connection), POLLIN, 0};
    while (!takesTooLong(patience)) {
        const bool readableNow = poll(&readable, 1, LookAfterMilliseconds) > 0;
        m_yield();
        if (readableNow)
            return isConnected();
    }
    m_silent = true;
    return false;
}

/// Neither silence nor a drip of bytes goes on for ever.
bool SelectionTransfer::takesTooLong(int patience) const {
    return m_sinceProgress.elapsed() > patience ||
           m_sinceStart.elapsed() > patience + m_size / LeastBytesPerMillisecond;
}

void SelectionTransfer::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & TypeBits) {
    case XCB_SELECTION_NOTIFY:
        return start(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    case XCB_PROPERTY_NOTIFY: {
        const auto& notice = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (m_inPieces && notice.atom == m_property && notice.state == XCB_PROPERTY_NEW_VALUE)
            takePiece();
        return;
    }
    case XCB_DESTROY_NOTIFY:
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_owner)
            m_ended = true;
        return;
    default:
        return;
    }
}

void SelectionTransfer::start(const xcb_selection_notify_event_t& notice) {
    if (m_inPieces || notice.selection != m_selection)
        return;
    if (notice.property != m_property) {
        m_ended = true; // refused
    } else if (typeOfProperty() == m_incremental) {
        m_inPieces = true;
        m_sinceProgress.start();
        xcb_delete_property(m_connection, m_window, m_property); // which asks for the first piece
    } else {
        m_ended = m_complete = takeProperty();
    }
}

xcb_atom_t SelectionTransfer::typeOfProperty() {
    const auto cookie =
        xcb_get_property(m_connection, 0, m_window, m_property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
    return reply ? reply->type : xcb_atom_t{XCB_ATOM_NONE};
}

void SelectionTransfer::takePiece() {
    if (typeOfProperty() == XCB_ATOM_NONE)
        return; // a second notice for a piece that has been taken
    const qsizetype before = m_size;
    if (!takeProperty())
        m_ended = true;
    else if (m_size > before)
        m_sinceProgress.start();
    else
        m_ended = m_complete = true; // an empty piece is the last
}

/// Appends what the property holds and deletes it. False when it cannot be had or is too much.
bool SelectionTransfer::takeProperty() {
    uint32_t offset = 0;
    for (bool more = true; more; offset += PropertyWords) {
        const auto cookie = xcb_get_property(m_connection, 1, m_window, m_property, XCB_GET_PROPERTY_TYPE_ANY,
                                             offset, PropertyWords);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        const int length = reply ? xcb_get_property_value_length(reply.get()) : 0;
        if (!reply || reply->type == XCB_ATOM_NONE || m_size + length > MostBytes)
            return false;
        m_pieces.emplace_back(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
        m_size += length;
        more = reply->bytes_after > 0;
        m_yield();
    }
    return true;
}

/// Piece by piece, as a growing array would be moved about as a whole.
QByteArray SelectionTransfer::joined() {
    QByteArray bytes;
    bytes.reserve(m_size);
    for (QByteArray& piece : m_pieces) {
        bytes.append(piece);
        piece = QByteArray();
        m_yield();
    }
    return bytes;
}

} // namespace ovrano
