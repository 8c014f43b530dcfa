#include "platform/parallel.h"
#include "support/testprogram.h"

#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <atomic>
#include <new>
#include <numeric>
#include <set>
#include <stdexcept>

using namespace ovrano;

class TestParallel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyItemIsWorkedOnOnce_data();
    void everyItemIsWorkedOnOnce();
    void severalThreadsAtATime();
    void aWorkerIsOneThread();
    void withoutHelpersTheCallerDoesIt();
    void neverMoreThanMostWorkers();
    void whatIsThrownComesOut_data();
    void whatIsThrownComesOut();
    void whatIsBegunIsFinishedBeforeItIsThrown();
    void afterAFailureNoMoreIsBegun();
    void helpersThatComeTooLateDoNothing();
    void inTheMiddleOfItself();
    void eachWorkerHasItsOwn();
    void whatAHelperCannotMakeIsTold();
};

namespace {

constexpr int Threads = 4;     // of the pool, whatever machine this is
constexpr int Plenty = 30'000; // milliseconds

/// While there is one, all threads that could help are at other work, so that whoever shares out work does it
/// alone.
class BusyPool {
public:
    BusyPool() {
        m_pool.waitForDone();
        for (int i = 0; i < m_threads; ++i)
            m_pool.start([this] {
                m_begun.release();
                m_over.acquire();
            });
        m_begun.acquire(m_threads);
    }
    BusyPool(const BusyPool&) = delete;
    BusyPool& operator=(const BusyPool&) = delete;
    ~BusyPool() {
        m_over.release(m_threads);
        m_pool.waitForDone();
    }

private:
    QThreadPool& m_pool = helperThreads();
    const int m_threads = m_pool.maxThreadCount();
    QSemaphore m_begun;
    QSemaphore m_over;
};

} // namespace

/// All helpers are idle, those that came too late in the test before, too.
void TestParallel::init() {
    helperThreads().waitForDone();
    helperThreads().setMaxThreadCount(Threads);
}

void TestParallel::everyItemIsWorkedOnOnce_data() {
    QTest::addColumn<int>("items");
    for (const int items : {0, 1, 2, 3, 1000})
        QTest::addRow("%d", items) << items;
}

void TestParallel::everyItemIsWorkedOnOnce() {
    QFETCH(int, items);
    std::vector<std::atomic<int>> times(static_cast<std::size_t>(items));
    inParallel(items, [&](int, int item) { ++times.at(static_cast<std::size_t>(item)); });
    for (const std::atomic<int>& count : times)
        QCOMPARE(count.load(), 1);
}

void TestParallel::severalThreadsAtATime() {
    // Each item waits for the other one.
    std::array<QSemaphore, 2> begun;
    std::atomic<bool> together = true;
    inParallel(2, [&](int, int item) {
        begun.at(static_cast<std::size_t>(item)).release();
        if (!begun.at(static_cast<std::size_t>(1 - item)).tryAcquire(1, Plenty))
            together = false;
    });
    QVERIFY(together);
}

void TestParallel::aWorkerIsOneThread() {
    std::vector<std::set<Qt::HANDLE>> threads(static_cast<std::size_t>(mostWorkers()));
    inParallel(1000, [&](int worker, int) {
        threads.at(static_cast<std::size_t>(worker)).insert(QThread::currentThreadId());
        QThread::usleep(10);
    });
    std::set<Qt::HANDLE> all;
    std::size_t took = 0;
    for (const auto& ofWorker : threads) {
        QVERIFY(ofWorker.size() <= 1);
        took += ofWorker.size();
        all.insert(ofWorker.begin(), ofWorker.end());
    }
    QCOMPARE(all.size(), took);
    for (const Qt::HANDLE thread : threads.front()) // none when the helpers were faster
        QCOMPARE(thread, QThread::currentThreadId());
}

void TestParallel::withoutHelpersTheCallerDoesIt() {
    const BusyPool busy;
    int next = 0;
    inParallel(100, [&](int worker, int item) {
        QCOMPARE(worker, 0);
        QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
        QCOMPARE(item, next++);
    });
    QCOMPARE(next, 100);
}

void TestParallel::neverMoreThanMostWorkers() {
    helperThreads().setMaxThreadCount(40);
    QVERIFY(mostWorkers() < 40);
    std::atomic<int> greatest = 0;
    inParallel(400, [&](int worker, int) {
        int before = greatest;
        while (worker > before && !greatest.compare_exchange_weak(before, worker))
            ;
        QThread::usleep(100);
    });
    QVERIFY(greatest < mostWorkers());
}

void TestParallel::whatIsThrownComesOut_data() {
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("failing");
    QTest::newRow("the only one") << 1 << 0;
    QTest::newRow("the first one") << 50 << 0;
    QTest::newRow("one in the middle") << 50 << 25;
    QTest::newRow("the last one") << 50 << 49;
}

void TestParallel::whatIsThrownComesOut() {
    QFETCH(int, items);
    QFETCH(int, failing);
    const auto work = [failing](int, int item) {
        if (item == failing)
            throw std::runtime_error("item");
    };
    for (int round = 0; round < 50; ++round) // so that now the caller and now a helper fails
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, inParallel(items, work));
    int after = 0;
    inParallel(1, [&](int, int) { ++after; });
    QCOMPARE(after, 1);
}

void TestParallel::whatIsBegunIsFinishedBeforeItIsThrown() {
    QSemaphore begun;
    std::atomic<bool> finished = false;
    const auto work = [&](int, int item) {
        if (item == 0) {
            begun.tryAcquire(1, Plenty);
            throw std::runtime_error("item");
        }
        begun.release();
        QThread::msleep(50);
        finished = true;
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, inParallel(2, work));
    QVERIFY(finished);
}

void TestParallel::afterAFailureNoMoreIsBegun() {
    const BusyPool busy;
    int begun = 0;
    const auto work = [&](int, int item) {
        ++begun;
        if (item == 3)
            throw std::runtime_error("item");
    };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, inParallel(100, work));
    QCOMPARE(begun, 4);
}

void TestParallel::helpersThatComeTooLateDoNothing() {
    // The work is over before most helpers have woken up. It lies on the stack, where the next round's is.
    for (int round = 0; round < 20'000; ++round) {
        std::array<int, 3> values = {};
        inParallel(3, [&values, round](int, int item) { values.at(static_cast<std::size_t>(item)) = round; });
        QCOMPARE(values, (std::array{round, round, round}));
    }
}

void TestParallel::inTheMiddleOfItself() {
    std::atomic<int> done = 0;
    inParallel(8, [&](int, int) { inParallel(8, [&](int, int) { ++done; }); });
    QCOMPARE(done.load(), 64);
}

void TestParallel::eachWorkerHasItsOwn() {
    std::atomic<int> made = 0;
    PerWorker<std::vector<int>> lists([&] {
        ++made;
        return std::make_unique<std::vector<int>>();
    });
    inParallel(1000, [&](int worker, int item) {
        lists.of(worker).push_back(item);
        QThread::usleep(10);
    });
    std::vector<int> all;
    int visited = 0;
    lists.forEach([&](const std::vector<int>& some) {
        ++visited;
        all.insert(all.end(), some.begin(), some.end());
    });
    QCOMPARE(visited, made.load());
    std::sort(all.begin(), all.end());
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    QCOMPARE(all, expected);
}

void TestParallel::whatAHelperCannotMakeIsTold() {
    const QThread* const caller = QThread::currentThread();
    PerWorker<int> numbers([caller] {
        if (QThread::currentThread() != caller)
            throw std::bad_alloc();
        return std::make_unique<int>();
    });
    QSemaphore helped;
    const auto work = [&](int worker, int) {
        if (worker == Caller)
            helped.tryAcquire(1, Plenty); // until a helper has tried
        else
            helped.release();
        ++numbers.of(worker);
    };
    QVERIFY_THROWS_EXCEPTION(std::bad_alloc, inParallel(2, work));
    int made = 0;
    numbers.forEach([&made](int) { ++made; });
    QVERIFY(made <= 1);
}

OVRANO_TEST(TestParallel)
#include "tst_parallel.moc"
