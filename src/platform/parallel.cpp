#include "platform/parallel.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <new>

namespace ovrano {

namespace {

using Work = std::function<void(int worker, int item)>;

/// Items that several threads take one by one. A helper that starts after all are taken does not touch the
/// work, which may no longer exist, and nobody waits for it.
class SharedItems {
public:
    SharedItems(int items, const Work& work)
        : m_items(items)
        , m_work(work) {}

    void takeAll(int worker) noexcept {
        try {
            for (int item = m_next++; item < m_items; item = m_next++)
                m_work(worker, item);
        } catch (...) {
            m_next = m_items;
            const std::scoped_lock lock(m_mutex);
            if (!m_failure)
                m_failure = std::current_exception();
        }
    }

    void help(int worker) noexcept {
        {
            const std::scoped_lock lock(m_mutex);
            ++m_helping;
        }
        takeAll(worker);
        const std::scoped_lock lock(m_mutex);
        --m_helping;
        m_helperIsThrough.notify_one();
    }

    /// Waits for the items that helpers have begun. All items are taken.
    void finish() {
        std::unique_lock lock(m_mutex);
        m_helperIsThrough.wait(lock, [this] { return m_helping == 0; });
        if (m_failure)
            std::rethrow_exception(m_failure);
    }

private:
    const int m_items;
    const Work& m_work;
    std::atomic<int> m_next = 0;
    std::mutex m_mutex; // guards the members below
    std::condition_variable m_helperIsThrough;
    int m_helping = 0;
    std::exception_ptr m_failure;
};

void callHelpers(const std::shared_ptr<SharedItems>& shared, int count) noexcept {
    try {
        for (int worker = 1; worker <= count; ++worker)
            if (!helperThreads().tryStart([shared, worker] { shared->help(worker); }))
                return;
    } catch (const std::bad_alloc&) {
        return; // the helpers started so far suffice
    }
}

} // namespace

QThreadPool& helperThreads() {
    static auto* const threads = [] {
        auto* const made = new QThreadPool;
        made->setExpiryTimeout(-1);
        return made;
    }();
    return *threads;
}

int mostWorkers() {
    constexpr int Most = 4;
    return std::clamp(helperThreads().maxThreadCount(), 1, Most);
}

void inParallel(int items, const Work& work) {
    const auto shared = std::make_shared<SharedItems>(items, work);
    callHelpers(shared, std::min(items, mostWorkers()) - 1);
    shared->takeAll(Caller);
    shared->finish();
}

} // namespace ovrano
