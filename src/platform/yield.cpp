#include "platform/yield.h"

#include "platform/longwork.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QScopeGuard>
#include <QTimer>

namespace ovrano {

namespace {

// Only the thread of the window yields.
bool underWay = false;
int yields = 0;
LongWork* listener = nullptr;

class PressDiscarder : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isPress =
            event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        return (isPress && event->spontaneous()) || QObject::eventFilter(watched, event);
    }
};

} // namespace

bool EventYield::isUnderWay() {
    return underWay;
}

void EventYield::setListener(LongWork* toTell) {
    listener = toTell;
}

int EventYield::count() {
    return yields;
}

void discardWaitingPresses() {
    // What has waited is delivered at once; nobody can have aimed at the new picture yet.
    constexpr int ReactionMilliseconds = 50;
    auto* discarder = new PressDiscarder(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(discarder);
    QTimer::singleShot(ReactionMilliseconds, discarder, &QObject::deleteLater);
}

void EventYield::operator()() {
    constexpr int FrameMilliseconds = 16;
    if (underWay || m_sinceLast.elapsed() < FrameMilliseconds)
        return;
    underWay = true;
    ++yields;
    const auto over = qScopeGuard([] { underWay = false; });
    if (listener)
        listener->goesOn();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_sinceLast.start();
}

} // namespace ovrano
