#pragma once

#include <QAbstractButton>
#include <QAccessibleWidget>

namespace ovrano {

/// What a button or box that is on or off tells assistive technology. Toggling it from there presses it, as
/// the mouse and the keyboard do: the toolkit's own interface would only change how it looks.
class AccessibleToggle : public QAccessibleWidget {
public:
    /// Gives every button that can be on or off this interface, from now on. Calling it again does nothing.
    static void install();

    explicit AccessibleToggle(QAbstractButton& button);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString& action) const override;

private:
    QAbstractButton& button() const { return *static_cast<QAbstractButton*>(object()); }
};

} // namespace ovrano
