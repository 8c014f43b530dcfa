#include "support/playuser.h"

#include "support/guithread.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QThread>
#include <QWidget>

#include <atomic>
#include <exception>
#include <memory>

namespace ovrano::testing {

namespace {

/// A dialog that waits for its answer would keep the program's thread from ever seeing the script's end.
void closeWaitingWindows() {
    constexpr int Attempts = 100;
    for (int i = 0; i < Attempts; ++i) {
        const bool closed = inGui([] {
            QWidget* waiting = QApplication::activePopupWidget();
            if (!waiting)
                waiting = QApplication::activeModalWidget();
            if (waiting)
                waiting->close();
            return waiting == nullptr;
        });
        if (closed)
            return;
        QThread::msleep(20);
    }
    qFatal("A dialog cannot be closed, so the program cannot end.");
}

} // namespace

void playUser(const std::function<void()>& script) {
    std::exception_ptr thrown;
    std::atomic<bool> ended = false;
    const std::unique_ptr<QThread> user(QThread::create([&] {
        try {
            script();
        } catch (...) {
            thrown = std::current_exception();
        }
        closeWaitingWindows();
        ended = true;
        QAbstractEventDispatcher::instance(QCoreApplication::instance()->thread())->wakeUp();
    }));
    user->start();
    // Not an event loop of its own: closing the last window ends those, and the script goes on after that.
    while (!ended)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    user->wait();
    if (thrown)
        std::rethrow_exception(thrown);
}

} // namespace ovrano::testing
