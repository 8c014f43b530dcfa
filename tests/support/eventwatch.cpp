#include "support/eventwatch.h"

#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xinput.h>

namespace ovrano::testing {

namespace {

/// Set in the type of an event that another client sent.
constexpr unsigned SentEvent = 0x80;

/// What is common to the events of the mouse, whichever protocol they came by.
struct Arrival {
    unsigned kind = 0;
    QPoint position;
};

/// The core protocol's event; key, button and motion events have one layout.
Arrival coreArrival(const xcb_generic_event_t& event) {
    const auto& motion = reinterpret_cast<const xcb_motion_notify_event_t&>(event);
    return {event.response_type & ~SentEvent, QPoint(motion.root_x, motion.root_y)};
}

/// The input extension's event; its coordinates have 16 bits behind the point. Generic events of other
/// extensions are not among what a window asks for. Each event comes twice: at once from the device itself,
/// which tells nothing, and from the master device that moves the pointer once the window manager has let it
/// through, which is the one that a window acts on.
Arrival extensionArrival(const xcb_generic_event_t& event) {
    const auto& motion = reinterpret_cast<const xcb_input_motion_event_t&>(event);
    const bool fromMaster = motion.deviceid != motion.sourceid;
    return {fromMaster ? motion.event_type : 0U, QPoint(motion.root_x >> 16, motion.root_y >> 16)};
}

Arrival arrivalOf(const xcb_generic_event_t& event) {
    return (event.response_type & ~SentEvent) == XCB_GE_GENERIC ? extensionArrival(event)
                                                                : coreArrival(event);
}

} // namespace

EventWatch::EventWatch() {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

EventWatch::~EventWatch() {
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool EventWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const Arrival arrival = arrivalOf(*static_cast<const xcb_generic_event_t*>(message));
    if (arrival.kind < static_cast<unsigned>(Input::KeyPress) ||
        arrival.kind > static_cast<unsigned>(Input::Motion))
        return false;
    m_lastPosition = arrival.position;
    ++m_counts.at(arrival.kind);
    return false;
}

} // namespace ovrano::testing
