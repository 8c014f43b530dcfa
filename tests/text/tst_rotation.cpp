#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "support/grid.h"
#include "text/rotation.h"

#include <QTest>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <utility>

using namespace ovrano;

namespace {

constexpr double Pi = 3.14159265359;
constexpr Colour Ground = rgb(200, 210, 220); // what the destination shows before
constexpr Colour Background = White;

using Pixel = std::pair<int, int>;

/// What one rotation is to do, besides its source.
struct Order {
    double angle = 0;
    bool skipBackground = false;
    Colour background = Background;
    bool mixed = false;
    QPoint centre = QPoint(0, 0);
};

void rotate(const Surface& source, Surface& destination, const Order& order) {
    RotatePicture(source, destination, order.angle, order.skipBackground, order.background, order.mixed,
                  order.centre.x(), order.centre.y());
}

/// A surface of one colour.
void prepare(Surface& surface, QSize size, Colour colour) {
    surface.setBackColor(colour);
    surface.setInnerSize(size);
}

/// Every pixel another colour, but for every third, which is background.
Raster motley(QSize size) {
    Raster picture(size, Background);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            if ((x + 2 * y) % 3 != 1)
                picture.setPixel(x, y, rgb((x * 37 + y * 11) % 250, (x * 5 + y * 71) % 250, (x ^ y) % 250));
    return picture;
}

void show(Surface& surface, const Raster& picture) {
    surface.setInnerSize(picture.size());
    surface.setPicture(picture);
}

/// A picture turned into the middle of a white one.
QStringList turned(const QStringList& rows, QSize size, const Order& order) {
    Surface source(QStringLiteral("source"));
    show(source, grid(rows));
    Surface destination(QStringLiteral("destination"), size);
    rotate(source, destination, order);
    return rowsOf(destination.Image());
}

/// The rotation as a plain loop over a quarter of the plane with four pixels a step: slow and obvious.
class FourfoldLoop {
public:
    FourfoldLoop(const Raster& source, const Raster& destination, const Order& order)
        : m_source(source)
        , m_destination(destination)
        , m_order(order)
        , m_side(sideOf(source)) {
        if (m_order.centre.x() == 0)
            m_order.centre.setX(destination.width() / 2);
        if (m_order.centre.y() == 0)
            m_order.centre.setY(destination.height() / 2);
    }

    const Raster& run() {
        for (double o = 0; o <= m_side / 2.0; ++o)
            for (double i = 0; i <= m_side / 2.0; ++i)
                step(o, i);
        return m_destination;
    }

    /// Only the row and the column of the centre, of which a large picture has few enough.
    const Raster& runAxes() {
        for (double i = 0; i <= m_side / 2.0; ++i)
            step(0, i);
        for (double o = 1; o <= m_side / 2.0; ++o)
            step(o, 0);
        return m_destination;
    }

    QPoint centre() const { return m_order.centre; }

    /// Pixels beside the axes that a tiny error may give another colour.
    const std::set<Pixel>& doubtful() const { return m_doubtful; }

private:
    static std::int16_t sideOf(const Raster& source) {
        const double w = source.width();
        const double h = source.height();
        return toInteger16(std::sqrt(w * w + h * h) + 2);
    }

    void step(double o, double i) {
        const double sx = m_source.width() / 2;
        const double sy = m_source.height() / 2;
        const double theta = (m_order.angle / 360) * 2 * Pi;
        const double a = o == 0 ? Pi / 2 : std::atan(i / o);
        const double r = std::sqrt(o * o + i * i);
        const double c = r * std::cos(theta + a);
        const double s = r * std::sin(theta + a);
        copy(sx + c, sy + s, o, i);
        copy(sx - c, sy - s, -o, -i);
        copy(sx + s, sy - c, i, -o);
        copy(sx - s, sy + c, -i, o);
    }

    static bool nearHalf(double value) { return std::abs(value - std::floor(value) - 0.5) < 1e-9; }

    void copy(double x, double y, double dx, double dy) {
        const Pixel to(m_order.centre.x() + static_cast<int>(dx), m_order.centre.y() + static_cast<int>(dy));
        if (dx != 0 && dy != 0 && (nearHalf(x) || nearHalf(y)))
            m_doubtful.insert(to);
        const Colour colour =
            m_source.pixel(static_cast<int>(roundHalfEven(x)), static_cast<int>(roundHalfEven(y)));
        if (colour == InvalidColour || (m_order.skipBackground && colour == m_order.background))
            return;
        m_destination.setPixel(to.first, to.second, m_order.mixed ? mixed(x, y, colour) : colour);
    }

    /// Bilinear; what is outside or left out counts as the nearest pixel.
    Colour mixed(double x, double y, Colour nearest) const {
        const double left = std::floor(x);
        const double top = std::floor(y);
        std::array<double, 3> sum{};
        for (int corner = 0; corner < 4; ++corner) {
            const double px = left + corner % 2;
            const double py = top + corner / 2;
            Colour colour = m_source.pixel(static_cast<int>(px), static_cast<int>(py));
            if (colour == InvalidColour || (m_order.skipBackground && colour == m_order.background))
                colour = nearest;
            const double weight = (1 - std::abs(x - px)) * (1 - std::abs(y - py));
            sum[0] += weight * redOf(colour);
            sum[1] += weight * greenOf(colour);
            sum[2] += weight * blueOf(colour);
        }
        return rgb(qRound(sum[0]), qRound(sum[1]), qRound(sum[2]));
    }

    const Raster& m_source;
    Raster m_destination;
    Order m_order;
    std::int16_t m_side;
    std::set<Pixel> m_doubtful;
};

int distance(Colour a, Colour b) {
    return std::max(
        {std::abs(redOf(a) - redOf(b)), std::abs(greenOf(a) - greenOf(b)), std::abs(blueOf(a) - blueOf(b))});
}

/// Fails where the rotation and the plain loop differ by more than `tolerance` in a channel.
void compareWithLoop(const Raster& picture, QSize destinationSize, const Order& order, int tolerance = 0) {
    Surface source(QStringLiteral("source"));
    show(source, picture);
    Surface destination(QStringLiteral("destination"));
    prepare(destination, destinationSize, Ground);
    FourfoldLoop loop(picture, destination.Image(), order);
    const Raster& expected = loop.run();
    rotate(source, destination, order);
    if (destination.Image() == expected)
        return;
    QVERIFY2(loop.doubtful().size() < 3, "too much left out");
    for (int y = 0; y < destinationSize.height(); ++y)
        for (int x = 0; x < destinationSize.width(); ++x) {
            if (loop.doubtful().count(Pixel(x, y)) != 0)
                continue;
            const Colour is = destination.Image().pixel(x, y);
            const Colour wanted = expected.pixel(x, y);
            QVERIFY2(is == wanted || (is != Ground && wanted != Ground && distance(is, wanted) <= tolerance),
                     qPrintable(QStringLiteral("angle %1, pixel (%2, %3): %4 instead of %5")
                                    .arg(order.angle)
                                    .arg(x)
                                    .arg(y)
                                    .arg(is, 6, 16)
                                    .arg(wanted, 6, 16)));
        }
}

/// The same for the row and the column of the centre alone, where nothing may differ.
void compareAxesWithLoop(const Surface& source, QSize destinationSize, const Order& order) {
    Surface destination(QStringLiteral("destination"));
    prepare(destination, destinationSize, Ground);
    FourfoldLoop loop(source.Image(), destination.Image(), order);
    const Raster& expected = loop.runAxes();
    rotate(source, destination, order);
    const QPoint centre = loop.centre();
    for (int x = 0; x < expected.width(); ++x)
        QCOMPARE(destination.Image().pixel(x, centre.y()), expected.pixel(x, centre.y()));
    for (int y = 0; y < expected.height(); ++y)
        QCOMPARE(destination.Image().pixel(centre.x(), y), expected.pixel(centre.x(), y));
}

int squareFor(QSize size) {
    return static_cast<int>(std::sqrt(size.width() * size.width() + size.height() * size.height()) + 3);
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
    void equalsPlainLoop_data();
    void equalsPlainLoop();
    void axesEqualPlainLoopAtHalves();
    void equalsPlainLoopAcrossTiles_data();
    void equalsPlainLoopAcrossTiles();
    void equalsPlainLoopOffCentre_data();
    void equalsPlainLoopOffCentre();
    void farCentresDrawNothing();
    void mixedEqualsPlainLoop_data();
    void mixedEqualsPlainLoop();
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

void TestRotation::equalsPlainLoop_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("skip");
    const std::array<QSize, 9> sizes = {QSize(9, 7),  QSize(8, 6),  QSize(7, 12), QSize(1, 11), QSize(2, 11),
                                        QSize(11, 1), QSize(10, 1), QSize(1, 1),  QSize(2, 2)};
    for (const QSize size : sizes)
        for (const bool skip : {false, true})
            QTest::addRow("%d x %d%s", size.width(), size.height(), skip ? ", skipping" : "") << size << skip;
}

void TestRotation::equalsPlainLoop() {
    QFETCH(QSize, size);
    QFETCH(bool, skip);
    const int side = squareFor(size);
    for (int angle = -360; angle <= 360 && !QTest::currentTestFailed(); ++angle)
        compareWithLoop(motley(size), QSize(side, side), {.angle = double(angle), .skipBackground = skip});
    compareWithLoop(motley(size), QSize(side, side), {.angle = 12.345, .skipBackground = skip});
    compareWithLoop(motley(size), QSize(side, side), {.angle = 1e-6, .skipBackground = skip});
    compareWithLoop(motley(size), QSize(side, side), {.angle = 1e6, .skipBackground = skip});
}

/// At multiples of 30 degrees every other pixel of the centre's row and column lies exactly between two, as
/// far as the digits of π tell; how many digits count depends on how large the coordinates are.
void TestRotation::axesEqualPlainLoopAtHalves() {
    for (const QSize size :
         {QSize(101, 60), QSize(64, 64), QSize(6001, 7), QSize(8190, 40), QSize(33, 5000)}) {
        Surface source(QStringLiteral("source"));
        show(source, motley(size));
        for (int angle = -360; angle <= 360; angle += 30)
            for (const bool skip : {false, true})
                compareAxesWithLoop(source, QSize(1201, 1100),
                                    {.angle = double(angle), .skipBackground = skip});
    }
}

void TestRotation::equalsPlainLoopAcrossTiles_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("four tiles") << QSize(300, 270);
    QTest::newRow("one tile exactly") << QSize(256, 256);
    QTest::newRow("long") << QSize(900, 3);
    QTest::newRow("tall") << QSize(2, 600);
}

void TestRotation::equalsPlainLoopAcrossTiles() {
    QFETCH(QSize, size);
    const int side = squareFor(size);
    for (const double angle : {0.0, 37.0, 90.0, -113.0, 45.0, 270.5, 359.0})
        compareWithLoop(motley(size), QSize(side, side), {.angle = angle, .skipBackground = angle > 40});
}

void TestRotation::equalsPlainLoopOffCentre_data() {
    QTest::addColumn<QSize>("destination");
    QTest::addColumn<QPoint>("centre");
    QTest::newRow("much larger") << QSize(90, 70) << QPoint(0, 0);
    QTest::newRow("larger, off centre") << QSize(90, 70) << QPoint(61, 23);
    QTest::newRow("over the right edge") << QSize(40, 40) << QPoint(38, 20);
    QTest::newRow("over the lower edge") << QSize(40, 40) << QPoint(17, 44);
    QTest::newRow("over the upper left corner") << QSize(40, 40) << QPoint(-3, -5);
    QTest::newRow("centre before the left edge") << QSize(40, 40) << QPoint(-1, 20);
    QTest::newRow("smaller than the source") << QSize(7, 5) << QPoint(0, 0);
    QTest::newRow("one pixel") << QSize(1, 1) << QPoint(4, -6);
    QTest::newRow("out of reach") << QSize(20, 20) << QPoint(60, 10);
}

void TestRotation::equalsPlainLoopOffCentre() {
    QFETCH(QSize, destination);
    QFETCH(QPoint, centre);
    for (int angle = -360; angle <= 360 && !QTest::currentTestFailed(); angle += 7)
        for (const bool skip : {false, true})
            compareWithLoop(motley(QSize(23, 16)), destination,
                            {.angle = double(angle), .skipBackground = skip, .centre = centre});
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

void TestRotation::mixedEqualsPlainLoop_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("skip");
    for (const QSize size :
         {QSize(9, 7), QSize(8, 6), QSize(1, 11), QSize(10, 1), QSize(1, 1), QSize(300, 5)})
        for (const bool skip : {false, true})
            QTest::addRow("%d x %d%s", size.width(), size.height(), skip ? ", skipping" : "") << size << skip;
}

void TestRotation::mixedEqualsPlainLoop() {
    QFETCH(QSize, size);
    QFETCH(bool, skip);
    const int side = squareFor(size);
    // A step of the sampler is 1/256 of a pixel, and a channel may change by 250 in either direction.
    constexpr int Tolerance = 3;
    for (int angle = -360; angle <= 360 && !QTest::currentTestFailed(); angle += size.width() > 100 ? 37 : 5)
        compareWithLoop(motley(size), QSize(side, side),
                        {.angle = double(angle), .skipBackground = skip, .mixed = true}, Tolerance);
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
    Raster picture(QSize(40, 40), Background);
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
    Raster picture(QSize(1000, 1000), Background);
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

QTEST_MAIN(TestRotation)
#include "tst_rotation.moc"
