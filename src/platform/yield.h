#pragma once

#include <QElapsedTimer>

#include <utility>

namespace ovrano {

class LongWork;

/// Lets the window repaint during a long loop: call it after each row, or after what takes a few
/// milliseconds. It processes pending events at most every 16 ms and leaves user input waiting, so that no
/// command starts inside another.
class EventYield {
public:
    EventYield() { m_sinceLast.start(); }
    void operator()();

    /// Whether events are being processed in the middle of a command. Input is held back then; commands
    /// triggered in other ways (by an assistive tool, say) must check this and not start.
    static bool isUnderWay();

    /// Who is told of every time that events are about to be processed: one listener, or none.
    static void setListener(LongWork* toTell);

    /// How often events have been processed so since the program started.
    static int count();

private:
    QElapsedTimer m_sinceLast;
};

/// Wraps a command for a signal: it is ignored while another command is under way.
template<typename Command>
auto unlessUnderWay(Command command) {
    return [command = std::move(command)] {
        if (!EventYield::isUnderWay())
            command();
    };
}

/// Discards the mouse presses that came during a long command: they were aimed at what was shown before.
/// Mouse moves, keys and requests to close are obeyed as usual.
void discardWaitingPresses();

} // namespace ovrano
