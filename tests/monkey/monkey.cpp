#include "monkey/monkey.h"

#include "monkey/toys.h"
#include "platform/yield.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QMimeData>
#include <QStyleFactory>
#include <QToolTip>
#include <QUrl>

#include <algorithm>
#include <array>
#include <numeric>

namespace ovrano::monkey {

namespace {

using testing::BlindInput;

/// Milliseconds between two acts, when the program takes none.
constexpr int Interval = 2;

/// Nothing that is the window manager's: it would put the window away.
constexpr std::array Keys = {
    Qt::Key_Return, Qt::Key_Escape,    Qt::Key_Tab,  Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,
    Qt::Key_Down,   Qt::Key_Home,      Qt::Key_End,  Qt::Key_PageUp, Qt::Key_Space, Qt::Key_PageDown,
    Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Z,    Qt::Key_X,      Qt::Key_C,     Qt::Key_V,
    Qt::Key_N,      Qt::Key_O,         Qt::Key_S,    Qt::Key_A,      Qt::Key_F,     Qt::Key_E,
    Qt::Key_0,      Qt::Key_9,         Qt::Key_Minus};

template<typename List>
const auto& anyOf(const List& list, QRandomGenerator& chance) {
    return *(std::begin(list) + chance.bounded(static_cast<int>(std::size(list))));
}

/// The topmost thing that has to go before the window itself can be worked again.
QWidget* blocker() {
    return QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                             : QApplication::activeModalWidget();
}

} // namespace

const std::vector<Monkey::Act>& Monkey::acts() {
    static const std::vector<Act> all = {
        {20, "move", &Monkey::move},
        {40, "click", &Monkey::click},
        {3, "double click", &Monkey::doubleClick},
        {20, "drag", &Monkey::drag},
        {6, "wheel", &Monkey::turnWheel},
        {30, "key", &Monkey::strikeKey},
        {4, "text", &Monkey::typeText},
        {2, "size", &Monkey::resizeWindow},
        {1, "theme", &Monkey::changeTheme},
        {2, "drop", &Monkey::dropFile},
        {3, "clipboard", &Monkey::fillClipboard},
        {1, "close", &Monkey::closeWindow},
    };
    return all;
}

Monkey::Monkey(unsigned seed)
    : m_chance(seed)
    , m_dialogs(m_chance, m_folder.path())
    , m_window(std::make_unique<MainWindow>(m_dialogs)) {
    layOut(m_folder.path());
    m_tick.setInterval(Interval);
    connect(&m_tick, &QTimer::timeout, this, &Monkey::act);
}

Monkey::~Monkey() {
    QToolTip::hideText(); // it would stay for ten seconds
    QGuiApplication::clipboard()->clear();
}

void Monkey::showWindow() {
    if (!m_window->isVisible())
        m_window->show();
    else if (m_window->isMinimized())
        m_window->setWindowState(Qt::WindowNoState);
}

void Monkey::play(int acts) {
    m_left = acts;
    m_watch.restart();
    m_tick.start();
    while (m_left > 0) { // the last window closed, or the program was told to end
        showWindow();
        QApplication::exec();
    }
    m_tick.stop();
    calmDown();
}

void Monkey::act() {
    if (m_left == 0) {
        // Inner loops have to end from the inside.
        if (QWidget* inTheWay = blocker())
            inTheWay->close();
        else if (!EventYield::isUnderWay())
            QCoreApplication::exit();
        return;
    }
    const auto& all = acts();
    const int sum =
        std::accumulate(all.begin(), all.end(), 0, [](int s, const Act& act) { return s + act.weight; });
    int drawn = m_chance.bounded(sum);
    const auto chosen =
        std::find_if(all.begin(), all.end(), [&](const Act& act) { return (drawn -= act.weight) < 0; });
    m_watch.alive(chosen->name);
    m_duringCommands += EventYield::isUnderWay() ? 1 : 0;
    --m_left;
    (this->*chosen->run)();
}

void Monkey::calmDown() {
    for (const auto button : {BlindInput::Left, BlindInput::Middle, BlindInput::Right})
        m_hand.release(button);
    QElapsedTimer waited;
    waited.start();
    constexpr int Settled = 300; // milliseconds, for what is still on its way through the server
    while (!waited.hasExpired(Settled)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        if (QWidget* inTheWay = blocker())
            inTheWay->close();
    }
}

bool Monkey::programStillWorks() {
    constexpr int Tries = 60;
    const Raster known = Raster::fromImage(knownPicture().convertToFormat(QImage::Format_RGB32));
    showWindow();
    for (int i = 0; i < Tries; ++i) {
        drop(knownFile(m_folder.path()));
        calmDown();
        if (m_window->work().picDisp.Image() == known)
            return true;
    }
    return false;
}

QStringList Monkey::filesLeft() const {
    return QDir(m_folder.path())
        .entryList({QStringLiteral(".ovrano-*"), QStringLiteral("Temp (*")}, QDir::Files | QDir::Hidden);
}

/// A widget that is shown and can be reached, or nothing.
QWidget* Monkey::anyWidget() {
    QWidget* const top = blocker() ? blocker() : m_window.get();
    QList<QWidget*> shown = {top};
    for (QWidget* widget : top->findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == top)
            shown.append(widget);
    return top->isVisible() ? shown[m_chance.bounded(static_cast<int>(shown.size()))] : nullptr;
}

QPoint Monkey::pointIn(QWidget& widget) {
    const QRect area = widget.visibleRegion().boundingRect();
    if (area.isEmpty())
        return widget.mapToGlobal(QPoint(0, 0));
    return widget.mapToGlobal(area.topLeft() +
                              QPoint(m_chance.bounded(area.width()), m_chance.bounded(area.height())));
}

void Monkey::move() {
    if (QWidget* widget = anyWidget())
        m_hand.moveTo(pointIn(*widget));
}

void Monkey::click() {
    const std::array buttons = {BlindInput::Left, BlindInput::Left,  BlindInput::Left,
                                BlindInput::Left, BlindInput::Right, BlindInput::Middle};
    const auto button = anyOf(buttons, m_chance);
    QWidget* widget = anyWidget();
    // Beside the program's windows there is only the desktop, whose menu ends the window manager.
    if (!widget)
        return;
    const QPoint at = pointIn(*widget);
    if (!QApplication::widgetAt(at))
        return;
    m_hand.moveTo(at);
    m_hand.press(button);
    m_hand.release(button);
}

void Monkey::doubleClick() {
    click();
    m_hand.press(BlindInput::Left);
    m_hand.release(BlindInput::Left);
}

void Monkey::drag() {
    QWidget* widget = happens(70) ? m_window->findChild<QWidget*>(QStringLiteral("picDisp")) : anyWidget();
    if (!widget || !widget->isVisible())
        return;
    const QPoint from = pointIn(*widget);
    if (!QApplication::widgetAt(from))
        return;
    m_hand.moveTo(from);
    m_hand.press(BlindInput::Left);
    for (int steps = m_chance.bounded(6); steps > 0; --steps)
        m_hand.moveTo(pointIn(*widget));
    m_hand.release(BlindInput::Left);
}

void Monkey::turnWheel() {
    move();
    const std::array turns = {BlindInput::WheelUp, BlindInput::WheelDown, BlindInput::WheelLeft,
                              BlindInput::WheelRight};
    const auto turn = anyOf(turns, m_chance);
    m_hand.press(turn);
    m_hand.release(turn);
}

void Monkey::strikeKey() {
    if (!QGuiApplication::focusWindow())
        return;
    Qt::KeyboardModifiers held;
    if (happens(25))
        held |= Qt::ShiftModifier;
    const auto key = anyOf(Keys, m_chance);
    const bool isManagers = key == Qt::Key_Tab || key == Qt::Key_Escape || key == Qt::Key_Space;
    if (happens(25))
        held |= Qt::ControlModifier;
    else if (happens(25) && !isManagers)
        held |= Qt::AltModifier;
    m_hand.strike(QKeyCombination(held, key));
}

void Monkey::typeText() {
    const std::array texts = {"Bonjour", "123456", "-1", "Été\n", "99999999999", "iiiiWWWWgggg"};
    if (QGuiApplication::focusWindow())
        m_hand.type(QString::fromUtf8(anyOf(texts, m_chance)));
}

void Monkey::resizeWindow() {
    m_window->resize(300 + m_chance.bounded(1200), 200 + m_chance.bounded(700));
}

void Monkey::changeTheme() {
    const QStringList styles = QStyleFactory::keys();
    if (happens(30))
        QApplication::setStyle(QStyleFactory::create(anyOf(styles, m_chance)));
    QApplication::setPalette(anyPalette(m_chance));
}

void Monkey::drop(const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    const QPoint at(m_chance.bounded(m_window->width()), m_chance.bounded(m_window->height()));
    QDragEnterEvent entering(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &entering);
    QDropEvent dropping(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &dropping);
}

void Monkey::dropFile() {
    drop(anyFile(m_chance, m_folder.path()));
}

void Monkey::fillClipboard() {
    QGuiApplication::clipboard()->setMimeData(anyClipboard(m_chance, m_folder.path()).release());
}

void Monkey::closeWindow() {
    if (QWidget* inTheWay = blocker())
        inTheWay->close();
    else
        m_window->close();
}

} // namespace ovrano::monkey
