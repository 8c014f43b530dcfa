#include "support/testprogram.h"
#include "text/fourfoldloop.h"
#include "text/rotationmap.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <cmath>

using namespace ovrano;

namespace {

int distance(Colour a, Colour b) {
    return std::max(
        {std::abs(redOf(a) - redOf(b)), std::abs(greenOf(a) - greenOf(b)), std::abs(blueOf(a) - blueOf(b))});
}

/// Fails where the rotation and the plain loop differ by more than `tolerance` in a channel.
void compareWithLoop(const Raster& picture, QSize destinationSize, const RotationOrder& order,
                     int tolerance = 0) {
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
            const Colour is = destination.Image().pixel(x, y);
            const Colour wanted = expected.pixel(x, y);
            if (is == wanted || loop.doubtful().count(FourfoldLoop::Pixel(x, y)) != 0)
                continue;
            QVERIFY2(is != Ground && wanted != Ground && distance(is, wanted) <= tolerance,
                     qPrintable(QStringLiteral("angle %1, pixel (%2, %3): %4 instead of %5")
                                    .arg(order.angle)
                                    .arg(x)
                                    .arg(y)
                                    .arg(is, 6, 16)
                                    .arg(wanted, 6, 16)));
        }
}

/// The same for the row and the column of the centre alone, where nothing may differ.
void compareAxesWithLoop(const Surface& source, QSize destinationSize, const RotationOrder& order) {
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

} // namespace

class TestRotationLoop : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void equalsPlainLoop_data();
    void equalsPlainLoop();
    void axesEqualPlainLoopAtHalves();
    void equalsPlainLoopAcrossTiles_data();
    void equalsPlainLoopAcrossTiles();
    void equalsPlainLoopOffCentre_data();
    void equalsPlainLoopOffCentre();
    void mixedEqualsPlainLoop_data();
    void mixedEqualsPlainLoop();
};

void TestRotationLoop::equalsPlainLoop_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("skip");
    const std::array<QSize, 9> sizes = {QSize(9, 7),  QSize(8, 6),  QSize(7, 12), QSize(1, 11), QSize(2, 11),
                                        QSize(11, 1), QSize(10, 1), QSize(1, 1),  QSize(2, 2)};
    for (const QSize size : sizes)
        for (const bool skip : {false, true})
            QTest::addRow("%d x %d%s", size.width(), size.height(), skip ? ", skipping" : "") << size << skip;
}

void TestRotationLoop::equalsPlainLoop() {
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
void TestRotationLoop::axesEqualPlainLoopAtHalves() {
    for (const QSize size :
         {QSize(101, 60), QSize(64, 64), QSize(6001, 7), QSize(8190, 40), QSize(33, 5000)}) {
        Surface source(QStringLiteral("source"));
        show(source, motley(size));
        for (int angle = -360; angle <= 360; angle += 30)
            for (const bool skip : {false, true})
                compareAxesWithLoop(source, QSize(1201, 1100),
                                    {.angle = double(angle), .skipBackground = skip});
        // Here the first pixel that lies between two is the second of an arm, and the 32nd.
        for (const double sine : {1 / 4.0, 1 / 64.0})
            compareAxesWithLoop(source, QSize(1201, 1100),
                                {.angle = std::asin(sine) * 180 / RotationMap::Pi});
    }
}

void TestRotationLoop::equalsPlainLoopAcrossTiles_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("four tiles") << QSize(300, 270);
    QTest::newRow("one tile exactly") << QSize(256, 256);
    QTest::newRow("long") << QSize(900, 3);
    QTest::newRow("tall") << QSize(2, 600);
}

void TestRotationLoop::equalsPlainLoopAcrossTiles() {
    QFETCH(QSize, size);
    const int side = squareFor(size);
    for (const double angle : {0.0, 37.0, 90.0, -113.0, 45.0, 270.5, 359.0})
        compareWithLoop(motley(size), QSize(side, side), {.angle = angle, .skipBackground = angle > 40});
}

void TestRotationLoop::equalsPlainLoopOffCentre_data() {
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

void TestRotationLoop::equalsPlainLoopOffCentre() {
    QFETCH(QSize, destination);
    QFETCH(QPoint, centre);
    for (int angle = -360; angle <= 360 && !QTest::currentTestFailed(); angle += 7)
        for (const bool skip : {false, true})
            compareWithLoop(motley(QSize(23, 16)), destination,
                            {.angle = double(angle), .skipBackground = skip, .centre = centre});
}

void TestRotationLoop::mixedEqualsPlainLoop_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("skip");
    for (const QSize size :
         {QSize(9, 7), QSize(8, 6), QSize(1, 11), QSize(10, 1), QSize(1, 1), QSize(300, 5)})
        for (const bool skip : {false, true})
            QTest::addRow("%d x %d%s", size.width(), size.height(), skip ? ", skipping" : "") << size << skip;
}

void TestRotationLoop::mixedEqualsPlainLoop() {
    QFETCH(QSize, size);
    QFETCH(bool, skip);
    const int side = squareFor(size);
    // A step of the sampler is 1/256 of a pixel, and a channel may change by 250 in either direction.
    constexpr int Tolerance = 3;
    for (int angle = -360; angle <= 360 && !QTest::currentTestFailed(); angle += size.width() > 100 ? 37 : 5)
        compareWithLoop(motley(size), QSize(side, side),
                        {.angle = double(angle), .skipBackground = skip, .mixed = true}, Tolerance);
}

OVRANO_TEST(TestRotationLoop)
#include "tst_rotationloop.moc"
