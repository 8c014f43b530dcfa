#include "platform/accessibletoggle.h"

#include <QRegularExpression>

namespace ovrano {

namespace {

QAccessibleInterface* newToggle(const QString&, QObject* object) {
    auto* button = qobject_cast<QAbstractButton*>(object);
    const bool isToggle = button && button->isCheckable() && !button->autoExclusive();
    return isToggle ? new AccessibleToggle(*button) : nullptr;
}

/// "&Gras" as it is shown.
QString withoutMnemonic(QString caption) {
    return caption.replace(QRegularExpression(QStringLiteral("&(.)")), QStringLiteral("\\1"));
}

} // namespace

void AccessibleToggle::install() {
    QAccessible::installFactory(newToggle);
}

AccessibleToggle::AccessibleToggle(QAbstractButton& button)
    : QAccessibleWidget(&button, QAccessible::CheckBox) {}

QString AccessibleToggle::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name && button().accessibleName().isEmpty())
        return withoutMnemonic(button().text());
    return QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleToggle::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    return state;
}

QStringList AccessibleToggle::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (button().isEnabled())
        names.prepend(toggleAction());
    return names;
}

void AccessibleToggle::doAction(const QString& action) {
    if (action != toggleAction())
        QAccessibleWidget::doAction(action);
    else // who asked for it does not wait for a dialog that may open
        QMetaObject::invokeMethod(object(), "click", Qt::QueuedConnection);
}

QStringList AccessibleToggle::keyBindingsForAction(const QString& action) const {
    if (action != toggleAction() || button().shortcut().isEmpty())
        return {};
    return {button().shortcut().toString()};
}

} // namespace ovrano
