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

/// A part of a visible widget, in the widget's coordinates.
struct Spot {
    const QWidget* widget = nullptr;
    QRect part;
};

/// Where a spot is on the screen, once it and its window stand still. `find` is asked in the program's
/// thread.
QRect settledPlace(User& user, const std::function<Spot()>& find, const QString& what) {
    QRect last;
    user.waitFor(
        [&] {
            const Spot spot = find();
            if (!spot.widget || !user.input.isInPlace(*spot.widget->window()->windowHandle()))
                return false;
            const QRect now = spot.part.translated(spot.widget->mapToGlobal(QPoint(0, 0)));
            return std::exchange(last, now) == now && !now.isEmpty();
        },
        what);
    return last;
}

/// The whole of a widget that can be worked.
std::function<Spot()> usable(const std::function<QWidget*()>& find) {
    return [find]() -> Spot {
        const QWidget* widget = find();
        return widget && widget->isEnabled() ? Spot{widget, widget->rect()} : Spot{};
    };
}

/// The action of a menu bar or menu that has the name itself or whose menu has it.
QAction* actionNamed(const QWidget& bar, const QString& name) {
    const QList<QAction*> actions = bar.actions();
    const auto found = std::find_if(actions.begin(), actions.end(), [&](const QAction* action) {
        return action->objectName() == name || (action->menu() && action->menu()->objectName() == name);
    });
    return found == actions.end() ? nullptr : *found;
}

/// An action of a visible menu bar or menu.
template<typename Bar>
Spot actionSpot(const QString& name) {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        QList<const Bar*> bars = window->findChildren<const Bar*>();
        if (const auto* itself = qobject_cast<const Bar*>(window))
            bars.append(itself);
        for (const Bar* bar : bars)
            if (QAction* action = bar->isVisible() ? actionNamed(*bar, name) : nullptr)
                return {bar, bar->actionGeometry(action)};
    }
    return {};
}

/// A row of a combo box's open list, scrolled into view.
Spot itemSpot(const QString& name, const QString& text) {
    auto* combo = qobject_cast<QComboBox*>(User::shown(name));
    const int row = combo ? combo->findText(text) : -1;
    if (row < 0 || !combo->view()->isVisible())
        return {};
    QAbstractItemView* list = combo->view();
    const QModelIndex index = combo->model()->index(row, combo->modelColumn(), combo->rootModelIndex());
    list->scrollTo(index);
    return {list->viewport(), list->visualRect(index)};
}

bool isListOpen(const QString& name) {
    const auto* combo = qobject_cast<const QComboBox*>(User::shown(name));
    return combo && combo->view()->isVisible();
}

} // namespace

QWidget* User::shown(const QString& name) {
    const QList<QWidget*> widgets = QApplication::allWidgets();
    const QWidget* modal = QApplication::activeModalWidget();
    const auto found = std::find_if(widgets.begin(), widgets.end(), [&](const QWidget* widget) {
        return widget->objectName() == name && widget->isVisible() && (!modal || widget->window() == modal);
    });
    return found == widgets.end() ? nullptr : *found;
}

void User::waitFor(const std::function<bool()>& condition, const QString& what) {
    if (!waitUntil(condition, Patience))
        throw InputError(QStringLiteral("waited in vain for ") + what);
}

void User::waitForWindow(const QString& name) {
    waitFor([&] { return shown(name) && shown(name)->isActiveWindow(); }, name);
    const auto window = [&]() -> Spot {
        const QWidget* widget = shown(name);
        return widget ? Spot{widget->window(), widget->window()->rect()} : Spot{};
    };
    settledPlace(*this, window, name);
}

QRect User::place(const QString& name) {
    return settledPlace(*this, usable([&] { return shown(name); }), name);
}

void User::click(const QString& name) {
    input.click(place(name).center());
}

void User::click(const std::function<QWidget*()>& find, const QString& what) {
    input.click(settledPlace(*this, usable(find), what).center());
}

void User::chooseMenu(const QString& menu, const QString& entry) {
    input.click(settledPlace(
                    *this, [&] { return actionSpot<QMenuBar>(menu); }, menu)
                    .center());
    input.click(settledPlace(
                    *this, [&] { return actionSpot<QMenu>(entry); }, entry)
                    .center());
}

void User::chooseItem(const QString& combo, const QString& text) {
    // The arrow is at the right end; the rest of an editable box is its text field.
    const auto arrow = [&]() -> Spot {
        const QWidget* box = shown(combo);
        const int side = box ? box->height() : 0;
        return box ? Spot{box, QRect(box->width() - side, 0, side, side)} : Spot{};
    };
    input.click(settledPlace(*this, arrow, combo).center());
    const QString row = combo + QStringLiteral(" with ") + text;
    input.click(settledPlace(
                    *this, [&] { return itemSpot(combo, text); }, row)
                    .center());
    waitFor([&] { return !isListOpen(combo); }, combo + QStringLiteral(" to close"));
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
