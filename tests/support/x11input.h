#pragma once

#include "support/eventwatch.h"
#include "support/x11keyboard.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QString>

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <set>
#include <vector>

class QWindow;

namespace ovrano::testing {

/// A mouse and a keyboard: gives the X server events as hardware would (extension XTEST), so that they take
/// the way of a user's through the window manager and grabs to the program's windows. Positions are pixels
/// of the program, of which each is several pixels of the screen where a scale factor is set.
///
/// Each function returns when its events have arrived in the program and throws InputError when they do
/// not. It can be called in the program's thread; what opens a dialog that waits for its answer would not
/// return there, so a script with such steps runs in a thread of its own (see playUser()).
class X11Input {
public:
    /// Connects to $DISPLAY. Must be built in the program's thread, after the application object.
    X11Input();
    /// Lets go of the buttons.
    ~X11Input();
    Q_DISABLE_COPY_MOVE(X11Input)

    /// How long an event may take to arrive, in milliseconds.
    void setPatience(int milliseconds) { m_patience = milliseconds; }

    /// Whether the server shows a window where and as large as the program takes it to be. It lags behind
    /// while the window manager has yet to act. For the program's thread.
    bool isInPlace(const QWindow& window);

    void moveTo(QPoint global);
    void press(Qt::MouseButton button = Qt::LeftButton);
    void release(Qt::MouseButton button = Qt::LeftButton);
    void click(QPoint global, Qt::MouseButton button = Qt::LeftButton);
    void doubleClick(QPoint global);
    /// Presses at `from`, goes to `to` in steps, and releases there.
    void drag(QPoint from, QPoint to, int steps = 8);
    /// Turns the wheel by notches: away from the user when positive.
    void wheel(QPoint global, int notches);
    /// A click on what belongs to the window manager, a title bar or a frame: no event of it will arrive.
    void clickFrame(QPoint global);

    /// A click where the mouse is, without waiting for it to arrive: the program may be busy.
    void clickUnseen();

    /// Types a text; line ends and tabs are their keys.
    void type(const QString& text);
    /// Holds the modifiers, strikes the key, lets go.
    void strike(QKeyCombination keys);

private:
    /// An event that is given to the server: its type and its key code or button.
    struct Event {
        Input type;
        std::uint8_t detail;
    };
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    /// The middle of a pixel of the program, in pixels of the screen.
    QPoint onServer(QPoint global);
    /// Where the server has a window's upper-left corner; nothing when it is gone.
    std::optional<QPoint> cornerOnServer(std::uint32_t window);
    void send(Input type, std::uint8_t detail, QPoint position = {});
    void synchronise();
    void outwaitDoubleClick(QPoint global);
    QPoint pointer();
    /// Sends events and waits until as many of each type have arrived as were sent.
    void deliver(const std::vector<Event>& events, const QString& what);
    void await(const std::function<bool()>& arrived, const QString& what);
    void stroke(X11Keyboard::Stroke stroke, Qt::KeyboardModifiers modifiers, const QString& what);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = 0;
    double m_scale; // pixels of the screen to one of the program
    X11Keyboard m_keyboard;
    EventWatch m_watch;
    std::set<std::uint8_t> m_down; // the buttons that are held
    QElapsedTimer m_sincePress;
    QPoint m_pressedAt;
    int m_patience = 10'000; // generous for a loaded machine and the sanitizers
};

} // namespace ovrano::testing
