#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QThreadPool;

namespace ovrano {

/// The threads that help. They are not the toolkit's own pool, in which its conversions wait for each other,
/// and they last as long as the process: where a thread cannot be made, the toolkit's pool counts it as at
/// work for ever, and whoever took the pool down would wait for it.
QThreadPool& helperThreads();

/// How many threads work on something together at most, the caller's among them: as many as there are
/// processors, but few, since each may need tables of its own.
int mostWorkers();

/// The worker that is the thread of whoever calls inParallel().
inline constexpr int Caller = 0;

/// Calls work(worker, item) once for every item from 0 to `items` - 1, in several threads at a time, and
/// returns when all of it is done.
///
/// Items are begun in ascending order. `worker` is the number of the thread, from Caller to
/// mostWorkers() - 1: what is collected meanwhile goes to a place of each worker. Helping threads are those
/// that are idle at the moment; without any the caller does all the work. Nothing may be shown meanwhile, so
/// whoever lets the window repaint deals out a portion at a time.
///
/// Of what the work throws, the first is thrown again here; items that are not begun then are left out.
void inParallel(int items, const std::function<void(int worker, int item)>& work);

/// Something of each worker's own, made in its thread when it is first asked for; `make` may be called by
/// several at a time.
template<typename Own>
class PerWorker {
public:
    using Make = std::function<std::unique_ptr<Own>()>;

    explicit PerWorker(Make make)
        : m_make(std::move(make))
        , m_own(static_cast<std::size_t>(mostWorkers())) {}

    Own& of(int worker) {
        std::unique_ptr<Own>& own = m_own.at(static_cast<std::size_t>(worker));
        if (!own)
            own = m_make();
        return *own;
    }

    /// Calls visit(Own&) for those that have been made.
    template<typename Visit>
    void forEach(Visit&& visit) {
        for (const std::unique_ptr<Own>& own : m_own)
            if (own)
                visit(*own);
    }

private:
    Make m_make;
    std::vector<std::unique_ptr<Own>> m_own;
};

} // namespace ovrano
