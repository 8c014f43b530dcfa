#include "ui/ccontrolflater.h"

#include "platform/runtimeerror.h"
#include "ui/flatstyle.h"

#include <QApplication>
#include <QChildEvent>
#include <QComboBox>
#include <QCursor>
#include <QMouseEvent>
#include <QVariant>

namespace ovrano {

namespace {

/// The control's property that holds the object that follows it.
constexpr const char* FlaterProperty = "cControlFlater";

} // namespace

cControlFlater::~cControlFlater() {
    detach();
}

const cControlFlater* cControlFlater::of(const QObject* control) {
    return control ? control->property(FlaterProperty).value<cControlFlater*>() : nullptr;
}

void cControlFlater::Attach(QObject* control) {
    auto* box = qobject_cast<QComboBox*>(control);
    if (!box)
        throw RuntimeError(error::InvalidCall,
                           QStringLiteral("Incorrect control type passed to 'Attach' parameter - "
                                          "must be a control with a hWnd property."));
    detach();
    m_control = box;
    m_control->setProperty(FlaterProperty, QVariant::fromValue(this));
    m_control->installEventFilter(this);
    for (QObject* part : m_control->children())
        watchPart(part);
    FlatStyle::instance().dress(*m_control);
    refresh();
}

void cControlFlater::detach() {
    m_timer.stop();
    m_pressed = false;
    m_left = false;
    m_list = nullptr;
    if (!m_control || of(m_control) != this)
        return;
    m_control->removeEventFilter(this);
    for (QObject* part : m_control->children())
        part->removeEventFilter(this);
    m_control->setProperty(FlaterProperty, QVariant());
    if (!QCoreApplication::closingDown())
        m_control->setStyle(nullptr);
    m_control = nullptr;
}

void cControlFlater::watchPart(QObject* part) {
    if (part->isWidgetType())
        part->installEventFilter(this);
    noteList(part);
}

void cControlFlater::noteList(QObject* part) {
    auto* widget = qobject_cast<QWidget*>(part);
    if (widget && widget->windowType() == Qt::Popup && widget->isVisible())
        m_list = widget;
}

bool cControlFlater::isPointerOver() const {
    const QWidget* under = m_left ? nullptr : QApplication::widgetAt(QCursor::pos());
    return under && (under == m_control || m_control->isAncestorOf(under));
}

bool cControlFlater::isDroppedDown() const {
    return m_list && m_list->isVisible();
}

FlatState cControlFlater::stateNow() const {
    if (!m_control->isEnabled())
        return FlatState::Disabled;
    if (m_pressed || isDroppedDown())
        return FlatState::Down;
    return m_control->hasFocus() || isPointerOver() ? FlatState::Hot : FlatState::Normal;
}

void cControlFlater::refresh() {
    if (isDroppedDown() || !m_control->isEnabled())
        m_pressed = false; // the release goes elsewhere
    const FlatState now = stateNow();
    const bool follow =
        m_control->isVisible() && (now == FlatState::Down || (now == FlatState::Hot && isPointerOver()));
    if (follow && !m_timer.isActive())
        m_timer.start(PointerInterval, Qt::PreciseTimer, this);
    else if (!follow)
        m_timer.stop();
    if (now == m_state)
        return;
    m_state = now;
    m_control->update();
}

bool cControlFlater::eventFilter(QObject* watched, QEvent* event) {
    if (!m_control)
        return false;
    switch (event->type()) {
    case QEvent::ChildAdded: // an edit field or the list
        if (watched == m_control)
            watchPart(static_cast<QChildEvent*>(event)->child());
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && !isDroppedDown())
            m_pressed = true;
        m_left = false;
        refresh();
        break;
    case QEvent::Show:
        noteList(watched);
        refresh();
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::Hide:
        m_pressed = false;
        refresh();
        break;
    case QEvent::Leave:
        m_left = m_left || watched == m_control;
        refresh();
        break;
    case QEvent::Enter:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::MouseMove:
        m_left = m_left && watched == m_list;
        refresh();
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::EnabledChange:
    case QEvent::Paint:
        refresh();
        break;
    default:
        break;
    }
    return false;
}

void cControlFlater::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    if (!m_control) {
        m_timer.stop();
        return;
    }
    if (!isPointerOver())
        m_pressed = false; // its release may never be told
    refresh();
}

} // namespace ovrano
