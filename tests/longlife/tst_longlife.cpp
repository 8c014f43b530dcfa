#include "longlife/life.h"
#include "support/held.h"
#include "support/testprogram.h"

#include <QtTest>

using namespace ovrano;
using testing::Held;

class TestLongLife : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingGrows();
};

void TestLongLife::nothingGrows() {
    // The first rounds fill what is kept on purpose: the memory of tiles, fonts, icons. Both numbers are
    // multiples of what the rounds differ in, so that the same picture is open before and after.
    constexpr int WarmingUp = 60;
    constexpr int Rounds = 300;
    longlife::Life life;
    for (int round = 0; round < WarmingUp; ++round)
        QCOMPARE(life.live(round), QString());
    const Held before = Held::now();
    const int files = life.files();
    for (int round = WarmingUp; round < WarmingUp + Rounds; ++round)
        QCOMPARE(life.live(round), QString());
    const Held after = Held::now();
    QCOMPARE(life.files(), files);
    QCOMPARE(after.widgets, before.widgets);
    QCOMPARE(after.descriptors, before.descriptors);
    QVERIFY(after.threads <= before.threads); // one may have been ending just then
#ifndef OVRANO_SANITIZED                      // whose allocator is another
    // Not what is resident: large pages and each thread's share of free memory make that a matter of luck.
    constexpr std::size_t Allowed = 60'000; // bytes, 200 to a round
    QVERIFY2(after.allocated <= before.allocated + Allowed,
             qPrintable(QStringLiteral("%1 bytes more").arg(after.allocated - before.allocated)));
#endif
}

OVRANO_TEST(TestLongLife)
#include "tst_longlife.moc"
