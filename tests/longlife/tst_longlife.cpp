#include "longlife/life.h"
#include "support/held.h"

#include <QtTest>

using namespace ovrano;
using testing::Held;

class TestLongLife : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingGrows();
};

void TestLongLife::nothingGrows() {
    // The first rounds fill what is kept on purpose: the memory of tiles, fonts, icons.
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
    QCOMPARE(after.descriptors, before.descriptors);
    QCOMPARE(after.widgets, before.widgets);
#ifndef OVRANO_SANITIZED                      // whose allocator keeps what is given back
    constexpr std::size_t Allowed = 2U << 20; // bytes: less than 7 KB to a round
    QVERIFY2(after.memory <= before.memory + Allowed,
             qPrintable(QStringLiteral("%1 KB more").arg((after.memory - before.memory) >> 10)));
#endif
}

QTEST_MAIN(TestLongLife)
#include "tst_longlife.moc"
