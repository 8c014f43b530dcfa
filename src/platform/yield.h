#pragma once

#include <QElapsedTimer>

namespace ovrano {

/// Lets the window repaint during a long loop: call it once per column or row. It processes pending events
/// at most every 16 ms and leaves user input waiting, so that no command starts inside another.
class EventYield {
public:
    EventYield() { m_sinceLast.start(); }
    void operator()();

private:
    QElapsedTimer m_sinceLast;
};

} // namespace ovrano
