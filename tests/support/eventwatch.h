#pragma once

#include <QAbstractNativeEventFilter>
#include <QPoint>

#include <array>
#include <atomic>

namespace ovrano::testing {

/// The kinds of input that the X server reports, by the number that its core protocol and its input
/// extension share.
enum class Input { KeyPress = 2, KeyRelease = 3, ButtonPress = 4, ButtonRelease = 5, Motion = 6 };

/// Counts the input events that arrive from the X server for any window of this program. Lives in the
/// program's thread; can be read from every thread.
class EventWatch : public QAbstractNativeEventFilter {
public:
    EventWatch();
    ~EventWatch() override;
    Q_DISABLE_COPY_MOVE(EventWatch)

    int count(Input input) const { return m_counts.at(static_cast<std::size_t>(input)); }
    /// Where on the screen the last event of the mouse came from.
    QPoint lastPosition() const { return m_lastPosition; }

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::array<std::atomic<int>, 7> m_counts{};
    std::atomic<QPoint> m_lastPosition;
};

} // namespace ovrano::testing
