#include "model/shrinker.h"
#include "model/walk.h"
#include "support/testprogram.h"

#include <QTest>

using namespace ovrano;
using namespace ovrano::model;

class TestModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void windowAndModelAgree();
    void disagreementsAreSeen();
    void failuresShrink();
    void stepsAreWrittenAsSource();
};

void TestModel::windowAndModelAgree() {
    constexpr unsigned Seed = 6;
    constexpr int Steps = 2000;
    const Walk done = walk(Seed, Steps);
    QVERIFY2(done.failure.isEmpty(), qPrintable(done.failure));
    QCOMPARE(done.steps, Steps);
    for (int kind = 0; kind <= static_cast<int>(LastKind); ++kind)
        QVERIFY2(done.done.contains(static_cast<Kind>(kind)), qPrintable(nameOf(static_cast<Kind>(kind))));
}

void TestModel::disagreementsAreSeen() {
    Replay both;
    QCOMPARE(both.doStep({Kind::Open, {3, NoFile}}), QString());
    both.window().work().picDisp.Line(QPointF(5, 5), QPointF(5, 5), rgb(1, 2, 3), BoxStyle::Filled);
    QVERIFY(both.doStep({Kind::OpenMenu, {1}}).contains(QStringLiteral("picture: 1 pixels differ")));
    QVERIFY(both.doStep({Kind::Save, {NoFile, 1}}).contains(QStringLiteral("picture: 1 pixels differ")));
}

void TestModel::failuresShrink() {
    std::vector<Step> steps(40, Step{Kind::Copy});
    steps[7] = {Kind::ZoneButton};
    steps[30] = {Kind::Cut};
    const auto fails = [](const std::vector<Step>& some) {
        bool zone = false;
        for (const Step& step : some) {
            zone = zone || step.kind == Kind::ZoneButton;
            if (zone && step.kind == Kind::Cut)
                return true;
        }
        return false;
    };
    const std::vector<Step> left = shrunk(steps, fails);
    QCOMPARE(left.size(), std::size_t(2));
    QCOMPARE(left[0].kind, Kind::ZoneButton);
    QCOMPARE(left[1].kind, Kind::Cut);
}

void TestModel::stepsAreWrittenAsSource() {
    QCOMPARE(sourceOf({Kind::Open, {3, NoFile}, Answer::Yes}),
             QStringLiteral("{Kind::Open, {3, -1}, Answer::Yes}"));
    QCOMPARE(sourceOf({Kind::Cut}), QStringLiteral("{Kind::Cut, {}}"));
}

OVRANO_TEST(TestModel)
#include "tst_model.moc"
