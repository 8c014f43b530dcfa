#include "monkey/monkey.h"
#include "support/held.h"
#include "support/testprogram.h"

#include <QApplication>
#include <QtTest>

using namespace ovrano;

class TestMonkey : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void leavesTheProgramAsItShouldBe();
};

namespace {

/// The classes of all widgets that there are, but for the desktop, which the toolkit makes when it first
/// needs it.
QString widgetsLeft() {
    QStringList left;
    for (const QWidget* widget : QApplication::allWidgets())
        if (widget->windowType() != Qt::Desktop)
            left.append(QLatin1String(widget->metaObject()->className()));
    return left.join(QLatin1Char(' '));
}

} // namespace

void TestMonkey::leavesTheProgramAsItShouldBe() {
    constexpr unsigned Seed = 1;
    constexpr int Acts = 5000;
    // Milliseconds of processor time, some twenty times what has been seen: more is no slow machine.
#ifdef OVRANO_SANITIZED
    constexpr double Longest = 4000;
#else
    constexpr double Longest = 1000;
#endif
    {
        // What the toolkit keeps from its first window on is no leak.
        monkey::Monkey first(Seed);
        first.play(1500);
    }
    QTRY_COMPARE(widgetsLeft(), QString()); // some go a moment later
    const testing::Held before = testing::Held::now();
    {
        monkey::Monkey monkey(Seed);
        monkey.play(Acts);
        QVERIFY(monkey.programStillWorks());
        QCOMPARE(monkey.filesLeft(), QStringList());
        QCOMPARE(monkey.watch().messages(), QStringList());
        qInfo("%d dialogs, %d acts in the middle of commands, longest %.0f ms (%s)", monkey.dialogsAnswered(),
              monkey.duringCommands(), monkey.watch().longest(), qPrintable(monkey.watch().longestWas()));
        QVERIFY(monkey.watch().longest() < Longest);
        QVERIFY(monkey.dialogsAnswered() > 20);
        QVERIFY(monkey.duringCommands() > 0);
    }
    QTRY_COMPARE(widgetsLeft(), QString());
    const testing::Held after = testing::Held::now();
    QCOMPARE(after.descriptors, before.descriptors);
    QVERIFY(after.threads <= before.threads); // one may have been ending just then
}

OVRANO_TEST(TestMonkey)
#include "tst_monkey.moc"
