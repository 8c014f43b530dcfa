#include "platform/directclipboard.h"
#include "platform/yield.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <poll.h>
#include <vector>
#include <xcb/xcb.h>

namespace ovrano {

namespace {

/// More than the largest picture that is opened takes in the least compact format.
constexpr qsizetype MostBytes = qsizetype{1400} << 20;
constexpr int PatienceMilliseconds = 5000;   // with a silent owner
constexpr int LookAfterMilliseconds = 4;     // for what the window has to do
constexpr uint32_t PropertyWords = 1U << 16; // fetched at once, 4 bytes each

struct Free {
    void operator()(void* memory) const { std::free(memory); } // NOLINT(cppcoreguidelines-no-malloc)
};
template<typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

/// One transfer of a selection as the "Inter-Client Communication Conventions Manual" lays it down: at once
/// through a property of a window of ours, or in pieces (INCR), each put there when the one before was taken.
/// The connection is our own, so that the toolkit's events stay where they are.
class Transfer {
public:
    Transfer()
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
    }
    Q_DISABLE_COPY_MOVE(Transfer)
    ~Transfer() { xcb_disconnect(m_connection); }

    QByteArray fetch(const QByteArray& type) {
        if (!isConnected() || !watchOwner())
            return {};
        xcb_convert_selection(m_connection, m_window, m_selection, atom(type), m_property, XCB_CURRENT_TIME);
        while (!m_ended && waitForEvent())
            while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
                handle(*event);
        return m_complete ? joined() : QByteArray();
    }

private:
    bool isConnected() const { return xcb_connection_has_error(m_connection) == 0; }

    xcb_atom_t atom(const QByteArray& name) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<uint16_t>(name.size()), name.constData());
        const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    /// Asks to be told when the owner's window goes.
    bool watchOwner() {
        m_selection = atom("CLIPBOARD");
        const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
            m_connection, xcb_get_selection_owner(m_connection, m_selection), nullptr));
        m_owner = reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
        constexpr uint32_t Events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_owner, XCB_CW_EVENT_MASK, &Events);
        return m_owner != XCB_WINDOW_NONE;
    }

    /// False when there will be none any more.
    bool waitForEvent() {
        xcb_flush(m_connection);
        pollfd readable{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        QElapsedTimer silent;
        silent.start();
        while (poll(&readable, 1, LookAfterMilliseconds) == 0) {
            m_yield();
            if (silent.elapsed() > PatienceMilliseconds)
                return false;
        }
        m_yield();
        return isConnected();
    }

    void handle(const xcb_generic_event_t& event) {
        constexpr int TypeBits = 0x7F;
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
            m_ended = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_owner;
            return;
        default:
            return;
        }
    }

    void start(const xcb_selection_notify_event_t& notice) {
        if (notice.property == XCB_ATOM_NONE)
            m_ended = true;
        else if (typeOfProperty() == m_incremental)
            m_inPieces = true; // taking the announcement away is what asks for the first piece
        else
            m_ended = m_complete = takeProperty();
        if (m_inPieces)
            xcb_delete_property(m_connection, m_window, m_property);
    }

    xcb_atom_t typeOfProperty() {
        const auto cookie =
            xcb_get_property(m_connection, 0, m_window, m_property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, cookie, nullptr));
        return reply ? reply->type : xcb_atom_t{XCB_ATOM_NONE};
    }

    /// An empty piece is the last.
    void takePiece() {
        const qsizetype before = m_size;
        if (!takeProperty())
            m_ended = true;
        else if (m_size == before)
            m_ended = m_complete = true;
    }

    /// Piece by piece, as a growing array would be moved about as a whole.
    QByteArray joined() {
        QByteArray bytes;
        bytes.reserve(m_size);
        for (QByteArray& piece : m_pieces) {
            bytes.append(piece);
            piece = QByteArray();
            m_yield();
        }
        return bytes;
    }

    /// Appends what the property holds and deletes it. False when it cannot be had.
    bool takeProperty() {
        uint32_t offset = 0;
        for (bool more = true; more; offset += PropertyWords) {
            const auto cookie = xcb_get_property(m_connection, 1, m_window, m_property,
                                                 XCB_GET_PROPERTY_TYPE_ANY, offset, PropertyWords);
            const Owned<xcb_get_property_reply_t> reply(
                xcb_get_property_reply(m_connection, cookie, nullptr));
            if (!reply || reply->type == XCB_ATOM_NONE || m_size > MostBytes)
                return false;
            m_pieces.emplace_back(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                  xcb_get_property_value_length(reply.get()));
            m_size += m_pieces.back().size();
            more = reply->bytes_after > 0;
        }
        return true;
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_incremental = XCB_ATOM_NONE;
    xcb_atom_t m_property = XCB_ATOM_NONE;
    bool m_inPieces = false;
    bool m_ended = false;
    bool m_complete = false;
    std::vector<QByteArray> m_pieces;
    qsizetype m_size = 0;
    EventYield m_yield;
};

} // namespace

std::optional<QByteArray> fetchDirectly(const QString& type) {
    if (QGuiApplication::platformName() != QStringLiteral("xcb"))
        return std::nullopt;
    return Transfer().fetch(type.toLatin1());
}

} // namespace ovrano
