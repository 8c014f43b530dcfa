#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QThreadPool;

namespace ovrano {

/// The threads that help. They are not the toolkit's own pool, in which its conversions wait for each other,
/// and they live as long as the process: if a thread cannot be created, the toolkit counts it as running for
/// ever, and destroying the pool would wait for it.
QThreadPool& helperThreads();

/// The largest number of threads that work together, including the caller's: one per processor, up to a small
/// limit, since each may need its own tables.
int mostWorkers();

/// The number of the worker that runs in the caller's own thread.
inline constexpr int Caller = 0;

/// Calls work(worker, item) once for every item from 0 to `items` - 1, in several threads, and returns when
/// all are done.
///
/// Items are begun in ascending order. `worker` is the number of the thread, from Caller to mostWorkers() -
/// 1; results are collected per worker. Only idle threads help; without any the caller does all the work. The
/// window cannot repaint meanwhile: to let it, hand out a portion at a time.
///
/// The first exception that the work throws is thrown again here; items not begun by then are skipped.
void inParallel(int items, const std::function<void(int worker, int item)>& work);

/// One object per worker, created in the worker's thread on first use; several threads may call `make` at
/// once.
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

    /// Calls visit(Own&) for those that exist.
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
