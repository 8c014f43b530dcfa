#include "document/drawingbudget.h"
#include "document/filetools.h"
#include "document/svgtools.h"
#include "document/vectorpicture.h"
#include "support/processortime.h"
#include "support/testprogram.h"

#include <QRandomGenerator>

#include <algorithm>
#include <functional>
#include <numeric>

using namespace ovrano;

namespace {

/// Which groups a group draws, by number: every group has a name and a shape of its own.
using Groups = std::vector<std::vector<int>>;

/// What a picture of these groups comes to when they stand in an order; -1 when it is refused.
qint64 counted(const Groups& groups, const std::vector<int>& order) {
    DrawingBudget budget;
    qint64 count = -1;
    skipOnError([&] {
        for (const int group : order) {
            budget.enter({QString::number(group)}, {});
            for (const int reused : groups.at(static_cast<std::size_t>(group))) {
                budget.enter({}, {QString::number(reused)});
                budget.leave();
            }
            budget.leave();
        }
        count = budget.drawnElements();
    });
    return count;
}

/// The same by following every group to its end, each time again; the longest chain within a few links tells
/// circles, too.
qint64 countedSlowly(const Groups& groups) {
    int longest = 0;
    const std::function<qint64(int, int)> follow = [&](int group, int chain) -> qint64 {
        longest = qMax(longest, chain);
        const std::vector<int>& reused = groups.at(static_cast<std::size_t>(group));
        qint64 sum = 1 + static_cast<qint64>(reused.size());
        for (const int one : reused)
            if (longest <= DrawingBudget::LongestChain)
                sum += follow(one, chain + 1);
        return sum;
    };
    qint64 sum = 0;
    for (int group = 0; group < static_cast<int>(groups.size()); ++group)
        sum += follow(group, 0);
    return longest > DrawingBudget::LongestChain || sum > DrawingBudget::MostElements ? -1 : sum;
}

/// Mostly chains, some with a circle.
Groups randomGroups(QRandomGenerator& random) {
    const int count = random.bounded(2, 34);
    Groups groups(static_cast<std::size_t>(count));
    for (int group = 0; group + 1 < count; ++group)
        for (int uses = random.bounded(0, 5) / 3 + (random.bounded(12) > 0 ? 1 : 0); uses > 0; --uses)
            groups.at(static_cast<std::size_t>(group))
                .push_back(qMin(count - 1, group + random.bounded(1, 4)));
    if (random.bounded(6) == 0)
        groups.back().push_back(random.bounded(count));
    return groups;
}

QByteArray use(const QByteArray& name) {
    return "<use xlink:href='#" + name + "'/>";
}

} // namespace

class DrawingBudgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deepNesting_data();
    void deepNesting();
    void reuse_data();
    void reuse();
    void reuseInCircles_data();
    void reuseInCircles();
    void reuseOfWhatFollows();
    void harmlessReferenceBesideAnother();
    void blanksAroundAReference();
    void oneNameTwice();
    void nestedNames();
    void anyOrderGivesTheSame();
    void tooManyElements();
    void elementsByPixels();
    void largeCanvas_data();
    void largeCanvas();
    void ordinaryDrawing();
};

void DrawingBudgetTest::deepNesting_data() {
    QTest::addColumn<int>("levels");
    QTest::addColumn<int>("number");
    QTest::newRow("150") << 150 << 0;
    QTest::newRow("1000") << 1000 << error::InvalidPicture;
    QTest::newRow("100000") << 100'000 << error::InvalidPicture;
}

void DrawingBudgetTest::deepNesting() {
    QFETCH(int, levels);
    QFETCH(int, number);
    const QByteArray nested = svg(QByteArray("<g>").repeated(levels) + "<rect width='5' height='5'/>" +
                                  QByteArray("</g>").repeated(levels));
    QCOMPARE(errorOf([&] { renderVectorPicture(nested); }), number);
}

void DrawingBudgetTest::reuse_data() {
    QTest::addColumn<QByteArray>("names"); // %1 is the name
    QTest::addColumn<int>("links");
    QTest::addColumn<int>("each"); // how often each link draws the one before
    QTest::addColumn<int>("number");
    for (const char* names : {"id='%1'", "xml:id='%1'", "id='' xml:id='%1'", "xml:id='x%1' id='%1'",
                              "id='%1' xml:id='x%1'", "xmlns:a='urn:a' a:id='x%1' id='%1'"}) {
        QTest::addRow("a chain, %s", names) << QByteArray(names) << 15 << 1 << 0;
        QTest::addRow("a long chain, %s", names) << QByteArray(names) << 25 << 1 << error::InvalidPicture;
        QTest::addRow("doubling, %s", names) << QByteArray(names) << 10 << 2 << 0;
        QTest::addRow("millions, %s", names) << QByteArray(names) << 12 << 4 << error::InvalidPicture;
    }
}

void DrawingBudgetTest::reuse() {
    QFETCH(QByteArray, names);
    QFETCH(int, links);
    QFETCH(int, each);
    QFETCH(int, number);
    const auto group = [&](int link, const QByteArray& content) {
        return "<g " + QByteArray(names).replace("%1", "n" + QByteArray::number(link)) + ">" + content +
               "</g>";
    };
    QByteArray body = group(0, "<rect width='5' height='5' fill='red'/>");
    for (int i = 1; i < links; ++i)
        body += group(i, use("n" + QByteArray::number(i - 1)).repeated(each));
    QCOMPARE(errorOf([&] { renderVectorPicture(svg(body)); }), number);
}

void DrawingBudgetTest::reuseInCircles_data() {
    QTest::addColumn<QByteArray>("id");
    QTest::newRow("id") << QByteArray("id");
    QTest::newRow("xml:id") << QByteArray("xml:id");
}

void DrawingBudgetTest::reuseInCircles() {
    QFETCH(QByteArray, id);
    const QByteArray circle =
        svg("<g " + id + "='a'>" + use("b") + "</g><g " + id + "='b'>" + use("a") + "</g>");
    QCOMPARE(errorOf([&] { renderVectorPicture(circle); }), error::InvalidPicture);
    const QByteArray itself = svg("<g " + id + "='a'>" + use("a") + "</g>");
    QCOMPARE(errorOf([&] { renderVectorPicture(itself); }), error::InvalidPicture);
}

void DrawingBudgetTest::reuseOfWhatFollows() {
    QByteArray body;
    for (int i = 0; i < 100'000; ++i)
        body += "<g id='n" + QByteArray::number(i) + "'>" + use("n" + QByteArray::number(i + 1)) + "</g>";
    QCOMPARE(errorOf([&] { renderVectorPicture(svg(body)); }), error::InvalidPicture);
}

// Only one of them is followed when it is drawn.
void DrawingBudgetTest::harmlessReferenceBesideAnother() {
    const QByteArray picture = svg("<rect id='b' width='4' height='4'/>"
                                   "<g id='a'><use href='#b' xlink:href='#a'/></g>");
    QCOMPARE(errorOf([&] { renderVectorPicture(picture); }), error::InvalidPicture);
}

void DrawingBudgetTest::blanksAroundAReference() {
    const QByteArray drawn = svg("<defs><rect id='r' width='40' height='30' fill='red'/></defs>"
                                 "<use xlink:href=' #r '/>");
    QVERIFY(renderVectorPicture(drawn) == Raster(QSize(40, 30), rgb(255, 0, 0)));
    const QByteArray otherName = svg("<defs><rect id='#r' width='40' height='30' fill='red'/></defs>"
                                     "<use xlink:href=' #r'/>");
    QVERIFY(renderVectorPicture(otherName) == Raster(QSize(40, 30), White));
}

// Whichever is drawn: both count.
void DrawingBudgetTest::oneNameTwice() {
    DrawingBudget budget;
    for (int i = 0; i < 2; ++i) {
        budget.enter({QStringLiteral("a")}, {});
        budget.leave();
    }
    budget.enter({}, {QStringLiteral("a")});
    budget.leave();
    QCOMPARE(budget.drawnElements(), 5);
}

void DrawingBudgetTest::nestedNames() {
    DrawingBudget budget;
    budget.enter({QStringLiteral("outer"), QStringLiteral("other")}, {});
    budget.enter({QStringLiteral("inner")}, {});
    budget.leave();
    budget.enter({}, {QStringLiteral("inner")});
    budget.leave();
    budget.leave(); // 3 elements, 4 drawn
    for (const char* name : {"outer", "inner", "other", "unknown"}) {
        budget.enter({}, {QString::fromLatin1(name)});
        budget.leave();
    }
    QCOMPARE(budget.drawnElements(), 4 + (1 + 4) + (1 + 1) + (1 + 4) + 1);
}

void DrawingBudgetTest::anyOrderGivesTheSame() {
    QRandomGenerator random(2407);
    int refused = 0;
    for (int round = 0; round < 400; ++round) {
        const Groups groups = randomGroups(random);
        const qint64 expected = countedSlowly(groups);
        refused += expected < 0 ? 1 : 0;
        std::vector<int> order(groups.size());
        std::iota(order.begin(), order.end(), 0);
        QCOMPARE(counted(groups, order), expected);
        std::reverse(order.begin(), order.end());
        QCOMPARE(counted(groups, order), expected);
        std::shuffle(order.begin(), order.end(), random);
        QCOMPARE(counted(groups, order), expected);
    }
    QVERIFY2(refused > 40 && refused < 360, qPrintable(QString::number(refused)));
}

void DrawingBudgetTest::tooManyElements() {
    DrawingBudget budget;
    const auto add = [&] {
        budget.enter({}, {});
        budget.leave();
    };
    for (qint64 i = 0; i < DrawingBudget::MostElements; ++i)
        add();
    QCOMPARE(budget.drawnElements(), DrawingBudget::MostElements);
    QCOMPARE(errorOf(add), error::InvalidPicture);
}

void DrawingBudgetTest::elementsByPixels() {
    constexpr qint64 Largest = qint64{16'384} * 16'384;
    QCOMPARE(errorOf([&] { DrawingBudget::requireAffordable(20'000, 4'000'000); }), 0);
    QCOMPARE(errorOf([&] { DrawingBudget::requireAffordable(100'000, 1'000'000); }), 0);
    QCOMPARE(errorOf([&] { DrawingBudget::requireAffordable(100'001, 1'000'000); }), error::InvalidPicture);
    QCOMPARE(errorOf([&] { DrawingBudget::requireAffordable(100, Largest); }), 0);
    QCOMPARE(errorOf([&] { DrawingBudget::requireAffordable(DrawingBudget::MostElements, Largest); }),
             error::InvalidPicture);
}

void DrawingBudgetTest::largeCanvas_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("many elements") << QByteArray("<rect width='5' height='5'/>").repeated(100'000);
    QTest::newRow("gradients all over")
        << "<defs><linearGradient id='g'><stop offset='0' stop-color='red'/>"
           "<stop offset='1' stop-color='blue'/></linearGradient></defs>" +
               QByteArray("<rect width='16384' height='16384' fill='url(#g)'/>").repeated(1000);
    QByteArray groups = "<g id='n0'><rect width='5' height='5'/></g>";
    for (int i = 1; i < 10; ++i)
        groups += "<g id='n" + QByteArray::number(i) + "'>" +
                  use("n" + QByteArray::number(i - 1)).repeated(2) + "</g>";
    QTest::newRow("few that are drawn often") << groups;
}

void DrawingBudgetTest::largeCanvas() {
    QFETCH(QByteArray, body);
    const QByteArray picture = svg(body, "width='16384' height='16384'");
    const testing::ProcessorTime time;
    QCOMPARE(errorOf([&] { renderVectorPicture(picture); }), error::InvalidPicture);
    QVERIFY2(time.milliseconds() < 10'000, qPrintable(QString::number(time.milliseconds())));
}

void DrawingBudgetTest::ordinaryDrawing() {
    const QByteArray picture = svg(QByteArray("<rect width='500' height='9' fill='red'/>").repeated(20'000) +
                                       "<rect width='2200' height='1700' fill='blue'/>",
                                   "width='2200' height='1700'");
    QVERIFY(renderVectorPicture(picture) == Raster(QSize(2200, 1700), rgb(0, 0, 255)));
}

OVRANO_TEST(DrawingBudgetTest)
#include "tst_drawingbudget.moc"
