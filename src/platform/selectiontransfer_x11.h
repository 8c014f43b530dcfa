#pragma once

#include "platform/yield.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QStringList>

#include <vector>
#include <xcb/xcb.h>

namespace ovrano {

/// One transfer of X11's clipboard selection as the "Inter-Client Communication Conventions Manual" lays it
/// down: at once through a property of a window of ours, or in pieces (INCR), each put there when the one
/// before was taken. The connection to the server is our own, so that the toolkit's events stay where they
/// are.
class SelectionTransfer {
public:
    SelectionTransfer();
    Q_DISABLE_COPY_MOVE(SelectionTransfer)
    ~SelectionTransfer();

    /// XCB_WINDOW_NONE when nobody has anything on the clipboard.
    xcb_window_t owner() const { return m_owner; }

    /// The owner's bytes for a target; empty when it gives nothing or does not finish. Waits at most
    /// `patience` milliseconds for the first answer and for each piece. Can be called once.
    QByteArray fetch(const QByteArray& target, int patience);

    /// Whether the last fetch ended because the owner took too long.
    bool wasSilent() const { return m_silent; }

    QStringList namesOf(const std::vector<xcb_atom_t>& atoms);

private:
    bool isConnected() const { return xcb_connection_has_error(m_connection) == 0; }
    xcb_atom_t atom(const QByteArray& name);
    void watchOwner();
    bool waitForEvent(int patience);
    bool takesTooLong(int patience) const;
    void handle(const xcb_generic_event_t& event);
    void start(const xcb_selection_notify_event_t& notice);
    xcb_atom_t typeOfProperty();
    void takePiece();
    bool takeProperty();
    QByteArray joined();

    xcb_connection_t* m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_window_t m_owner = XCB_WINDOW_NONE;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    xcb_atom_t m_incremental = XCB_ATOM_NONE;
    xcb_atom_t m_property = XCB_ATOM_NONE;
    bool m_inPieces = false;
    bool m_ended = false;
    bool m_complete = false;
    bool m_silent = false;
    std::vector<QByteArray> m_pieces;
    qsizetype m_size = 0; // of all pieces
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceProgress;
    EventYield m_yield;
};

} // namespace ovrano
