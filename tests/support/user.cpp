#include "support/user.h"

#include "support/inputerror.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace ovrano::testing {

namespace {

constexpr int Patience = 15'000; // ms until something that should appear has not

QRect onScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

/// The action of a menu bar or menu that has the name itself or whose menu has it.
QAction* actionNamed(const QWidget& bar, const QString& name) {
    const QList<QAction*> actions = bar.actions();
    const auto found = std::find_if(actions.begin(), actions.end(), [&](const QAction* action) {
        return action->objectName() == name || (action->menu() && action->menu()->objectName() == name);
    });
    return found == actions.end() ? nullptr : *found;
}

/// Where an action of a visible menu bar or menu is on the screen; empty while it is not.
template<typename Bar>
QRect actionPlace(const QString& name) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        QList<const Bar*> bars = window->findChildren<const Bar*>();
        if (const auto* itself = qobject_cast<const Bar*>(window))
            bars.append(itself);
        for (const Bar* bar : bars)
            if (QAction* action = bar->isVisible() ? actionNamed(*bar, name) : nullptr)
                return bar->actionGeometry(action).translated(bar->mapToGlobal(QPoint(0, 0)));
    }
    return {};
}

QRect itemPlace(QComboBox& combo, const QString& text) {
    QAbstractItemView* list = combo.view();
    const int row = combo.findText(text);
    if (row < 0 || !list->isVisible())
        return {};
    const QModelIndex index = combo.model()->index(row, combo.modelColumn(), combo.rootModelIndex());
    list->scrollTo(index);
    return list->visualRect(index).translated(list->viewport()->mapToGlobal(QPoint(0, 0)));
}

} // namespace

QWidget* User::shown(const QString& name) {
    const QList<QWidget*> widgets = QApplication::allWidgets();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [&](const QWidget* widget) {
        return widget->objectName() == name && widget->isVisible();
    });
    return found == widgets.end() ? nullptr : *found;
}

void User::waitFor(const std::function<bool()>& condition, const QString& what) {
    if (!waitUntil(condition, Patience))
        throw InputError(QStringLiteral("waited in vain for ") + what);
}

void User::waitForWindow(const QString& name) {
    QRect last;
    waitFor(
        [&] {
            const QWidget* widget = shown(name);
            const QWidget* window = widget ? widget->window() : nullptr;
            if (!window || !window->isActiveWindow() || !window->windowHandle()->isExposed())
                return false;
            return std::exchange(last, window->frameGeometry()) == window->frameGeometry();
        },
        name);
}

QRect User::place(const QString& name) {
    return ask<QWidget>(name, [](const QWidget& widget) { return onScreen(widget); });
}

void User::click(const QString& name) {
    click([&] { return shown(name); }, name);
}

void User::click(const std::function<QWidget*()>& find, const QString& what) {
    QRect where;
    waitFor(
        [&] {
            const QWidget* widget = find();
            if (!widget || !widget->isEnabled())
                return false;
            where = onScreen(*widget);
            return true;
        },
        what);
    input.click(where.center());
}

void User::chooseMenu(const QString& menu, const QString& entry) {
    QRect where;
    waitFor([&] { return !(where = actionPlace<QMenuBar>(menu)).isEmpty(); }, menu);
    input.click(where.center());
    waitFor([&] { return !(where = actionPlace<QMenu>(entry)).isEmpty(); }, entry);
    input.click(where.center());
}

void User::chooseItem(const QString& combo, const QString& text) {
    // The arrow is at the right end; the rest of an editable box is its text field.
    const QRect box = place(combo);
    input.click(QPoint(box.right() - box.height() / 2, box.center().y()));
    QRect where;
    waitFor(
        [&] {
            auto* open = qobject_cast<QComboBox*>(shown(combo));
            return open && !(where = itemPlace(*open, text)).isEmpty();
        },
        combo + QStringLiteral(" with ") + text);
    input.click(where.center());
    waitFor(
        [&] {
            const auto* open = qobject_cast<QComboBox*>(shown(combo));
            return open && !open->view()->isVisible();
        },
        combo + QStringLiteral(" to close"));
}

void User::retype(const QString& field, const QString& text) {
    click(field);
    input.strike(Qt::CTRL | Qt::Key_A);
    input.type(text);
}

QImage User::screen() {
    return inGui([] { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); });
}

} // namespace ovrano::testing
