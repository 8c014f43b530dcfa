#pragma once

#include "support/guithread.h"
#include "support/x11input.h"

#include <QImage>
#include <QString>
#include <QWidget>

namespace ovrano::testing {

/// Somebody at the screen: finds what is shown by its object's name and works it with mouse and keyboard.
/// Everything waits until what it needs is there and throws InputError when that does not happen.
class User {
public:
    /// In the program's thread, after the application object.
    User() = default;

    X11Input input;

    /// Waits until a condition, asked for in the program's thread, holds.
    void waitFor(const std::function<bool()>& condition, const QString& what);
    /// Waits until the window of a widget stands still on the screen and has the focus.
    void waitForWindow(const QString& name);

    /// Clicks the middle of a widget.
    void click(const QString& name);
    /// The same for one without a name, as in the toolkit's own dialogs: `find` is asked in the program's
    /// thread until it gives a widget.
    void click(const std::function<QWidget*()>& find, const QString& what);
    /// Opens a menu of the bar and chooses one of its entries; both have names.
    void chooseMenu(const QString& menu, const QString& entry);
    /// Opens a combo box and clicks the row with a text, scrolling to it as needed.
    void chooseItem(const QString& combo, const QString& text);
    /// Replaces what stands in a field.
    void retype(const QString& field, const QString& text);

    /// What the screen shows, window frames included.
    QImage screen();

    /// Where a visible and usable widget is on the screen.
    QRect place(const QString& name);
    /// A visible widget that can be reached (while a modal dialog is open, one of its own), or nothing; only
    /// for the program's thread.
    static QWidget* shown(const QString& name);
};

} // namespace ovrano::testing
