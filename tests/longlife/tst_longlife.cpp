#include "longlife/life.h"
#include "support/held.h"
#include "support/testprogram.h"

#include <QtTest>

#include <algorithm>
#include <vector>

using namespace ovrano;
using testing::Held;

class TestLongLife : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingGrows();

private:
    static void compareMemory(const std::vector<Held>& held);
};

namespace {

constexpr int Stretches = 6;
constexpr int RoundsOfStretch = 50;

/// Bytes that the resident memory grew by in the middle one of the stretches, sorted by their growth. The
/// allocator takes a megabyte more now and then, since memory that one thread took and another gave back is
/// not found again; what is lost in each round grows in every stretch.
qint64 middleGrowth(const std::vector<Held>& held) {
    std::vector<qint64> growth;
    for (std::size_t i = 1; i < held.size(); ++i)
        growth.push_back(static_cast<qint64>(held[i].resident) - static_cast<qint64>(held[i - 1].resident));
    std::sort(growth.begin(), growth.end());
    return growth.at(growth.size() / 2);
}

} // namespace

void TestLongLife::nothingGrows() {
    // The first rounds fill what is kept on purpose: the memory of tiles, fonts, icons.
    constexpr int WarmingUp = 60;
    longlife::Life life;
    int round = 0;
    const auto live = [&](int rounds) {
        for (const int end = round + rounds; round < end; ++round)
            QCOMPARE(life.live(round), QString());
    };
    live(WarmingUp);
    std::vector<Held> held{Held::now()};
    const int files = life.files();
    for (int i = 0; i < Stretches && !QTest::currentTestFailed(); ++i) {
        live(RoundsOfStretch);
        held.push_back(Held::now());
    }
    QCOMPARE(life.files(), files);
    QCOMPARE(held.back().widgets, held.front().widgets);
    QTRY_COMPARE(Held::now().descriptors, held.front().descriptors); // a thread may be coming or going
    QVERIFY(held.back().threads <= held.front().threads + testing::threadsOfPools());
#ifndef OVRANO_SANITIZED // whose allocator keeps what is given back
    compareMemory(held);
#endif
}

void TestLongLife::compareMemory(const std::vector<Held>& held) {
    constexpr qint64 OfRound = 200; // bytes: lists of the program's and the toolkit's that get longer
    constexpr qint64 InMiddleStretch = 256 << 10;
    const auto allocated =
        static_cast<qint64>(held.back().allocated) - static_cast<qint64>(held.front().allocated);
    QVERIFY2(allocated <= OfRound * Stretches * RoundsOfStretch,
             qPrintable(QStringLiteral("%1 bytes more are allocated").arg(allocated)));
    QVERIFY2(middleGrowth(held) <= InMiddleStretch,
             qPrintable(QStringLiteral("%1 bytes more in the middle stretch").arg(middleGrowth(held))));
}

OVRANO_TEST(TestLongLife)
#include "tst_longlife.moc"
