#pragma once

#include <QCoreApplication>
#include <QThread>

#include <exception>
#include <functional>
#include <optional>
#include <type_traits>

namespace ovrano::testing {

/// Whether the caller is in the thread that the program's windows live in.
inline bool isGuiThread() {
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

/// Waits until a condition, asked for in the program's thread, holds. In that thread itself events go on
/// meanwhile. Tells whether it came to hold within the time.
bool waitUntil(const std::function<bool()>& condition, int milliseconds);

/// Runs a function in the program's thread, also while a modal dialog is open there, and gives its result;
/// what it throws is thrown here.
template<typename Function>
auto inGui(Function&& function) -> std::invoke_result_t<Function> {
    using Result = std::invoke_result_t<Function>;
    if (isGuiThread())
        return function();
    std::exception_ptr thrown;
    const auto guarded = [&](auto&& body) {
        try {
            body();
        } catch (...) {
            thrown = std::current_exception();
        }
    };
    const auto run = [](const std::function<void()>& body) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), body, Qt::BlockingQueuedConnection);
    };
    const auto finish = [&] {
        if (thrown)
            std::rethrow_exception(thrown);
    };
    if constexpr (std::is_void_v<Result>) {
        run([&] { guarded(function); });
        finish();
    } else {
        std::optional<Result> result;
        run([&] { guarded([&] { result = function(); }); });
        finish();
        return *std::move(result);
    }
}

} // namespace ovrano::testing
