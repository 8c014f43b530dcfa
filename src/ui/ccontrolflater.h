#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace ovrano {

/// How the frame of a flat combo box is drawn; it says what the user may do or is doing with the box.
enum class FlatState {
    Normal,   // no edge to be seen
    Hot,      // raised: the pointer is over it, or it has the keyboard
    Down,     // sunken: pressed, or its list is open
    Disabled, // no edge to be seen
};

/// Gives one combo box, editable or not, a flat frame that rises under the pointer and sinks while the box is
/// pressed or its list is open. It follows the box's events, and while the pointer is over the box or the box
/// is down, the pointer itself, because leaving is not always told (over the edit field, over the list).
///
/// What is drawn in each state is the FlatStyle's business.
class cControlFlater : public QObject {
    Q_OBJECT

public:
    /// Milliseconds between two looks at the pointer.
    static constexpr int PointerInterval = 10;

    cControlFlater() = default;
    /// A box that is still there gets its former look back.
    ~cControlFlater() override;
    Q_DISABLE_COPY_MOVE(cControlFlater)

    /// Takes over a combo box's frame; one that was taken over before is given back. Throws RuntimeError
    /// error::InvalidCall with the description "Incorrect control type passed to 'Attach' parameter - must be
    /// a control with a hWnd property." for anything that is no combo box, nullptr included.
    void Attach(QObject* control);

    /// The box; nullptr before it is attached and after it was destroyed.
    QWidget* control() const { return m_control; }
    FlatState state() const { return m_state; }
    bool isFollowingPointer() const { return m_timer.isActive(); }

    /// The object that follows a control; nullptr for one that nothing was attached to.
    static const cControlFlater* of(const QObject* control);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void detach();
    /// Follows the events of an inner part of the box, too.
    void watchPart(QObject* part);
    /// Remembers the window of the box's list once that is open; asking the box for it would create it.
    void noteList(QObject* part);
    bool isPointerOver() const;
    bool isDroppedDown() const;
    FlatState stateNow() const;
    /// Takes on what the control is now, and redraws it when that is something else.
    void refresh();

    QPointer<QWidget> m_control; // QWidget: during destruction it is no longer a QComboBox
    QPointer<QWidget> m_list;
    FlatState m_state = FlatState::Normal;
    bool m_pressed = false;
    bool m_left = false; // told so, which counts more than an old position of the pointer (Wayland)
    QBasicTimer m_timer;
};

} // namespace ovrano
