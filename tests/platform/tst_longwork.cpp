#include "platform/longwork.h"
#include "platform/yield.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QtTest>

using namespace ovrano;

namespace {

/// Works and yields for that long.
void workFor(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    EventYield yield;
    while (clock.elapsed() < milliseconds)
        yield();
}

} // namespace

class TestLongWork : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shortWorkIsNotShown();
    void longWorkIsShownUntilItsEnd();
    void secondWorkIsMeasuredAnew();
    void endsWhileAQuestionWaits();
    void nobodyListensAfterwards();
};

void TestLongWork::shortWorkIsNotShown() {
    LongWork work;
    QSignalSpy begun(&work, &LongWork::begun), ended(&work, &LongWork::ended);
    EventYield yield;
    QTest::qSleep(20);
    yield(); // one yield, however slow the machine
    QCoreApplication::processEvents();
    QCOMPARE(begun.count(), 0);
    QCOMPARE(ended.count(), 0);
}

void TestLongWork::longWorkIsShownUntilItsEnd() {
    LongWork work;
    QSignalSpy begun(&work, &LongWork::begun), ended(&work, &LongWork::ended);
    workFor(LongWork::MomentMilliseconds * 3);
    QCOMPARE(begun.count(), 1);
    QCOMPARE(ended.count(), 0);
    QTRY_COMPARE(ended.count(), 1);
    QCOMPARE(begun.count(), 1);
}

void TestLongWork::secondWorkIsMeasuredAnew() {
    LongWork work;
    QSignalSpy begun(&work, &LongWork::begun), ended(&work, &LongWork::ended);
    workFor(LongWork::MomentMilliseconds * 3);
    QTRY_COMPARE(ended.count(), 1);
    EventYield yield;
    QTest::qSleep(20);
    yield();
    QCOMPARE(begun.count(), 1);
    workFor(LongWork::MomentMilliseconds * 3);
    QCOMPARE(begun.count(), 2);
}

void TestLongWork::endsWhileAQuestionWaits() {
    LongWork work;
    QSignalSpy ended(&work, &LongWork::ended);
    workFor(LongWork::MomentMilliseconds * 3);
    QEventLoop question;
    QTimer::singleShot(50, &question, &QEventLoop::quit);
    question.exec();
    QCOMPARE(ended.count(), 1);
}

void TestLongWork::nobodyListensAfterwards() {
    { const LongWork work; }
    EventYield yield;
    QTest::qSleep(20);
    const int before = EventYield::count();
    yield();
    QCOMPARE(EventYield::count(), before + 1);
}

OVRANO_TEST(TestLongWork)
#include "tst_longwork.moc"
