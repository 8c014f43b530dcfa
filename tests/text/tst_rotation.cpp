#include "platform/runtimeerror.h"
#include "support/grid.h"
#include "support/testprogram.h"
#include "text/fourfoldloop.h"
#include "text/rotation.h"

#include <QTest>

#include <functional>
#include <limits>
#include <utility>

using namespace ovrano;

namespace {

/// A picture turned into the middle of a white one.
QStringList turned(const QStringList& rows, QSize size, const RotationOrder& order) {
    Surface source(QStringLiteral("source"));
    show(source, grid(rows));
    Surface destination(QStringLiteral("destination"), size);
    rotate(source, destination, order);
    return rowsOf(destination.Image());
}

int errorOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

} // namespace

class TestRotation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void squareHoldsDiagonal_data();
    void squareHoldsDiagonal();
    void squareIsMeasuredInTheSurfacesScale();
    void angleZeroCopiesCentred();
    void angle90TurnsCounterClockwise();
    void halfTurn();
    void evenSizesTurnAboutTheirMiddlePixel();
    void wholeTurnsChangeNothing();
    void outsideKeepsItsColour();
    void backgroundIsLeftOut();
    void backgroundIsCopiedUnlessSkipped();
    void impossibleBackgroundSkipsNothing();
    void zeroCentreIsTheMiddle();
    void farCentresDrawNothing();
    void mixedIsExactAtQuarterTurns();
    void mixedHasNoPaleSeam();
    void diagonalIsLimitedTo16Bits();
    void angleMustBeFinite();
    void emptySurfacesAreHarmless();
    void untouchedTilesStayShared();
    void clsTakesTheRotationBack();
};

void TestRotation::squareHoldsDiagonal_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("side");
    QTest::newRow("3-4-5") << QSize(3, 4) << 7;
    QTest::newRow("one pixel, 3.41") << QSize(1, 1) << 3;
    QTest::newRow("rounded up, 12.63") << QSize(7, 8) << 13;
    QTest::newRow("wide, 1238.93") << QSize(1200, 300) << 1239;
    QTest::newRow("empty") << QSize(0, 0) << 2;
    QTest::newRow("beyond 16 bits") << QSize(40000, 30000) << 50002;
}

void TestRotation::squareHoldsDiagonal() {
    QFETCH(QSize, size);
    const Surface surface(QStringLiteral("surface"), size);
    QTEST(SizeToRotateRegion(surface), "side");
}

void TestRotation::squareIsMeasuredInTheSurfacesScale() {
    Surface surface(QStringLiteral("surface"), QSize(4, 3));
    surface.setScaleMode(ScaleMode::Twips);
    QCOMPARE(SizeToRotateRegion(surface), 5 * 15 + 2);
}

void TestRotation::angleZeroCopiesCentred() {
    QCOMPARE(turned({"rgb", "ymc"}, QSize(7, 6), {}),
             QStringList({".......", ".......", "..rgb..", "..ymc..", ".......", "......."}));
}

void TestRotation::angle90TurnsCounterClockwise() {
    QCOMPARE(turned({"rrrrr", "g#bby", "mmccc"}, QSize(7, 7), {.angle = 90}),
             QStringList({".......", "..ryc..", "..rbc..", "..rbc..", "..r#m..", "..rgm..", "......."}));
}

void TestRotation::halfTurn() {
    for (const double angle : {180.0, -180.0})
        QCOMPARE(turned({"rgb", "ymc", "##r"}, QSize(5, 5), {.angle = angle}),
                 QStringList({".....", ".r##.", ".cmy.", ".bgr.", "....."}));
}

/// An even side has no middle pixel: the right and lower one of the two in question counts as such.
void TestRotation::evenSizesTurnAboutTheirMiddlePixel() {
    QCOMPARE(turned({"rg", "bc"}, QSize(5, 5), {.angle = 90}),
             QStringList({".....", ".....", ".gc..", ".rb..", "....."}));
}

void TestRotation::wholeTurnsChangeNothing() {
    using Pair = std::pair<double, double>;
    for (const QSize size : {QSize(9, 5), QSize(8, 6), QSize(1, 7), QSize(300, 270)})
        for (const auto& [angle, same] :
             {Pair(360, 0), Pair(-360, 0), Pair(270, -90), Pair(-270, 90), Pair(-180, 180)}) {
            Surface source(QStringLiteral("source"));
            show(source, motley(size));
            Surface one(QStringLiteral("one"));
            prepare(one, QSize(squareFor(size), squareFor(size)), Ground);
            Surface other(QStringLiteral("other"));
            prepare(other, one.innerSize(), Ground);
            rotate(source, one, {.angle = angle});
            rotate(source, other, {.angle = same});
            QVERIFY(one.Image() == other.Image());
            QVERIFY(one.Image().pixel(one.innerSize().width() / 2, one.innerSize().height() / 2) != Ground);
        }
}

void TestRotation::outsideKeepsItsColour() {
    Surface source(QStringLiteral("source"));
    show(source, grid({"rrrrr"}));
    Surface destination(QStringLiteral("destination"));
    show(destination, grid({"ggggggg", "bbbbbbb", "ccccccc"}));
    rotate(source, destination, {});
    QCOMPARE(rowsOf(destination.Image()), QStringList({"ggggggg", "brrrrrb", "ccccccc"}));
    rotate(source, destination, {.angle = 90});
    QCOMPARE(rowsOf(destination.Image()), QStringList({"gggrggg", "brrrrrb", "cccrccc"}));
}

void TestRotation::backgroundIsLeftOut() {
    QCOMPARE(turned({"r#g", "###", "b#c"}, QSize(5, 5),
                    {.angle = 90, .skipBackground = true, .background = Black}),
             QStringList({".....", ".g.c.", ".....", ".r.b.", "....."}));
}

void TestRotation::backgroundIsCopiedUnlessSkipped() {
    QCOMPARE(turned({"r#g", "###", "b#c"}, QSize(5, 5), {.angle = 90, .background = Black}),
             QStringList({".....", ".g#c.", ".###.", ".r#b.", "....."}));
}

/// What Point() gives outside a surface equals no colour, and neither does a value of more than 24 bits.
void TestRotation::impossibleBackgroundSkipsNothing() {
    Surface source(QStringLiteral("source"));
    show(source, grid({".#.", "#.#", ".#."}));
    for (const Colour background : {InvalidColour, Colour(0x1FFFFFF)}) {
        Surface destination(QStringLiteral("destination"));
        prepare(destination, QSize(3, 3), Ground);
        rotate(source, destination, {.skipBackground = true, .background = background});
        QVERIFY(destination.Image() == source.Image());
    }
}

void TestRotation::zeroCentreIsTheMiddle() {
    Surface source(QStringLiteral("source"));
    show(source, grid({"#"}));
    using Case = std::pair<QPoint, QPoint>;
    for (const auto& [given, meant] : {Case(QPoint(0, 0), QPoint(4, 2)), Case(QPoint(0, 1), QPoint(4, 1)),
                                       Case(QPoint(6, 0), QPoint(6, 2)), Case(QPoint(7, 3), QPoint(7, 3))}) {
        Surface destination(QStringLiteral("destination"));
        prepare(destination, QSize(8, 5), Ground);
        rotate(source, destination, {.centre = given});
        Raster expected(QSize(8, 5), Ground);
        expected.setPixel(meant.x(), meant.y(), Black);
        QVERIFY(destination.Image() == expected);
    }
}

void TestRotation::farCentresDrawNothing() {
    Surface source(QStringLiteral("source"));
    show(source, motley(QSize(20, 20)));
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(20, 20), Ground);
    const Raster before = destination.Image();
    constexpr int Least = std::numeric_limits<std::int32_t>::min();
    constexpr int Most = std::numeric_limits<std::int32_t>::max();
    for (const QPoint centre :
         {QPoint(Least, Least), QPoint(Most, Most), QPoint(10, Most), QPoint(Least, 10)})
        rotate(source, destination, {.angle = 45, .centre = centre});
    QVERIFY(destination.Image() == before);
}

void TestRotation::mixedIsExactAtQuarterTurns() {
    Surface source(QStringLiteral("source"));
    show(source, motley(QSize(270, 20)));
    for (int angle = -360; angle <= 360; angle += 90) {
        Surface nearest(QStringLiteral("nearest"));
        prepare(nearest, QSize(275, 275), Ground);
        Surface mixed(QStringLiteral("mixed"));
        prepare(mixed, QSize(275, 275), Ground);
        rotate(source, nearest, {.angle = double(angle)});
        rotate(source, mixed, {.angle = double(angle), .mixed = true});
        QVERIFY(nearest.Image() == mixed.Image());
    }
}

/// Ink of one colour stays that colour up to its edge, whatever the background beside it.
void TestRotation::mixedHasNoPaleSeam() {
    constexpr Colour Ink = rgb(10, 60, 120);
    Raster picture(QSize(40, 40), White);
    picture.fill(QRect(10, 5, 7, 30), Ink);
    Surface source(QStringLiteral("source"));
    show(source, picture);
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(60, 60), Ground);
    rotate(source, destination, {.angle = 33, .skipBackground = true, .mixed = true});
    int inked = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x) {
            const Colour colour = destination.Image().pixel(x, y);
            QVERIFY(colour == Ink || colour == Ground);
            inked += colour == Ink ? 1 : 0;
        }
    QVERIFY(std::abs(inked - 7 * 30) < 15);
}

void TestRotation::diagonalIsLimitedTo16Bits() {
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(10, 10), Ground);
    const Surface largest(QStringLiteral("source"), QSize(32765, 1));
    QCOMPARE(errorOf([&] { rotate(largest, destination, {.angle = 90}); }), 0);
    QCOMPARE(destination.Point(5, 5), White);
    QCOMPARE(destination.Point(4, 5), Ground);
    const Surface larger(QStringLiteral("source"), QSize(32766, 1));
    QCOMPARE(errorOf([&] { rotate(larger, destination, {.angle = 90}); }), error::Overflow);
    const Surface large(QStringLiteral("source"), QSize(25000, 25000));
    QCOMPARE(errorOf([&] { rotate(large, destination, {.angle = 90}); }), error::Overflow);
}

void TestRotation::angleMustBeFinite() {
    const Surface source(QStringLiteral("source"), QSize(3, 3));
    Surface destination(QStringLiteral("destination"), QSize(3, 3));
    const double infinite = std::numeric_limits<double>::infinity();
    QCOMPARE(errorOf([&] { rotate(source, destination, {.angle = infinite}); }), error::InvalidCall);
}

void TestRotation::emptySurfacesAreHarmless() {
    const Surface nothing(QStringLiteral("source"), QSize(0, 0));
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(5, 5), Ground);
    rotate(nothing, destination, {.angle = 10});
    QVERIFY(destination.Image() == Raster(QSize(5, 5), Ground));
    Surface none(QStringLiteral("destination"), QSize(0, 0));
    rotate(destination, none, {.angle = 10});
    QVERIFY(none.Image().isEmpty());
}

void TestRotation::untouchedTilesStayShared() {
    Raster picture(QSize(1000, 1000), White);
    picture.fill(QRect(480, 480, 40, 40), Black);
    Surface source(QStringLiteral("source"));
    show(source, picture);
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(1416, 1416), Ground);
    const Raster before = destination.Image();
    rotate(source, destination, {.angle = 37, .skipBackground = true});
    QCOMPARE(destination.Point(708, 708), Black);
    for (const QPoint corner : {QPoint(0, 0), QPoint(1300, 0), QPoint(0, 1300), QPoint(1300, 1300)})
        QVERIFY(destination.Image().sharesTile(before, corner.x(), corner.y()));
    QVERIFY(!destination.Image().sharesTile(before, 708, 708));
}

void TestRotation::clsTakesTheRotationBack() {
    Surface source(QStringLiteral("source"));
    show(source, motley(QSize(30, 20)));
    Surface destination(QStringLiteral("destination"));
    prepare(destination, QSize(60, 60), Ground);
    const Raster before = destination.Image();
    QRegion announced;
    connect(&destination, &Surface::changed, this, [&](const QRegion& area) { announced += area; });
    rotate(source, destination, {.angle = 20});
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            QVERIFY(destination.Image().pixel(x, y) == Ground || announced.contains(QPoint(x, y)));
    QVERIFY(!(destination.Image() == before));
    destination.Cls();
    QVERIFY(destination.Image() == before);
}

OVRANO_TEST(TestRotation)
#include "tst_rotation.moc"
