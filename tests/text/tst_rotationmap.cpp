#include "platform/runtimeerror.h"
#include "support/testprogram.h"
#include "text/rotationmap.h"

#include <QTest>

#include <cmath>

using namespace ovrano;

namespace {

using Fixed = RotationMap::Fixed;

/// An angle whose cosine the fixed-point numbers hold exactly as ±1/2, so that every other coordinate of the
/// row through the centre lies exactly where a pixel begins. The map's own π is a little too large.
double exactAngle(double degrees) {
    return degrees * std::acos(-1.0) / RotationMap::Pi;
}

bool reads(const RotationMap& map, QPoint offset, const QRect& part) {
    const RotationMap::Point from = map.sourceOf(offset);
    return part.contains(QPoint(static_cast<int>(from.x >> RotationMap::FractionBits),
                                static_cast<int>(from.y >> RotationMap::FractionBits)));
}

/// Compares the columns of every row with those found one by one, and that none is outside offsetsOf().
void verifyColumns(const RotationMap& map, const QRect& part) {
    const int reach = map.reach();
    const QRect offsets = map.offsetsOf(part);
    for (int row = -reach; row <= reach; ++row) {
        const RotationMap::Columns columns = map.columnsOf(part, row, {-reach, reach});
        for (int column = -reach; column <= reach; ++column) {
            const bool wanted = reads(map, QPoint(column, row), part);
            QCOMPARE(columns.first <= column && column <= columns.last, wanted);
            QVERIFY(!wanted || offsets.contains(column, row));
        }
    }
}

} // namespace

class TestRotationMap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void exactAnglesAreExact();
    void columnsAreExact_data();
    void columnsAreExact();
    void reachHoldsThePicture();
    void errorStaysUnderABillionth();
    void tiesOnAxesAreFound();
};

void TestRotationMap::exactAnglesAreExact() {
    QCOMPARE(RotationMap(QSize(20, 20), exactAngle(60)).step().x, RotationMap::One / 2);
    QCOMPARE(RotationMap(QSize(20, 20), exactAngle(120)).step().x, -RotationMap::One / 2);
    QCOMPARE(RotationMap(QSize(20, 20), exactAngle(30)).step().y, RotationMap::One / 2);
    QCOMPARE(RotationMap(QSize(20, 20), exactAngle(-30)).step().y, -RotationMap::One / 2);
}

void TestRotationMap::columnsAreExact_data() {
    QTest::addColumn<double>("angle");
    for (const double angle : {0.0, 90.0, 180.0, -90.0, 360.0, 37.0, -143.5, 1e-5, -1e-5, 89.99999, 45.0})
        QTest::addRow("%g", angle) << angle;
    for (const double angle : {30, 60, 120, 150, -30, -60, -120, -150})
        QTest::addRow("exactly %g", angle) << exactAngle(angle);
}

void TestRotationMap::columnsAreExact() {
    QFETCH(double, angle);
    const RotationMap map(QSize(41, 26), angle);
    verifyColumns(map, QRect(0, 0, 41, 26));
    verifyColumns(map, QRect(0, 0, 20, 13));
    verifyColumns(map, QRect(20, 13, 21, 13));
    verifyColumns(map, QRect(7, 25, 1, 1));
}

/// No pixel of a picture is turned out of the square, at whatever angle.
void TestRotationMap::reachHoldsThePicture() {
    for (int w = 1; w <= 12; ++w)
        for (int h = 1; h <= 12; ++h)
            for (int angle = 0; angle < 360; angle += 9) {
                const RotationMap map(QSize(w, h), angle);
                const QRect picture(0, 0, w, h);
                const int beyond = map.reach() + 1;
                for (int along = -beyond; along <= beyond; ++along) {
                    QVERIFY(!reads(map, QPoint(along, beyond), picture));
                    QVERIFY(!reads(map, QPoint(along, -beyond), picture));
                    QVERIFY(!reads(map, QPoint(beyond, along), picture));
                    QVERIFY(!reads(map, QPoint(-beyond, along), picture));
                }
            }
}

/// Also at the corners of the largest square, where the coordinates have come the longest way.
void TestRotationMap::errorStaysUnderABillionth() {
    for (int angle = -360; angle <= 360; angle += 7) {
        const RotationMap map(QSize(32000, 6000), angle);
        const int reach = map.reach();
        for (const QPoint offset : {QPoint(reach, reach), QPoint(-reach, reach), QPoint(reach, 1 - reach),
                                    QPoint(1 - reach, -reach), QPoint(1, reach)}) {
            const long double cosine = std::cos(static_cast<long double>(map.radians()));
            const long double sine = std::sin(static_cast<long double>(map.radians()));
            const RotationMap::Point from = map.sourceOf(offset);
            const long double x = 16000.5L + offset.x() * cosine - offset.y() * sine;
            const long double y = 3000.5L + offset.x() * sine + offset.y() * cosine;
            QVERIFY(std::abs(std::ldexp(static_cast<long double>(from.x), -RotationMap::FractionBits) - x) <
                    1e-9L);
            QVERIFY(std::abs(std::ldexp(static_cast<long double>(from.y), -RotationMap::FractionBits) - y) <
                    1e-9L);
        }
    }
}

/// Also where an angle is so near to such a one that only digits beyond the formula's own tell them apart.
void TestRotationMap::tiesOnAxesAreFound() {
    for (const double angle : {30.0, 60.0, 120.0, 150.0, -30.0, 240.0, 330.0, 30 + 1e-9, 60 - 1e-9})
        QVERIFY2(RotationMap(QSize(40, 30), angle).hasTiesOnAxes(), qPrintable(QString::number(angle)));
    const double late = exactAngle(std::asin(1 / 64.0) * 180 / std::acos(-1.0)); // at the 32nd pixel
    QVERIFY(RotationMap(QSize(60, 30), late).hasTiesOnAxes());
    QVERIFY(!RotationMap(QSize(40, 30), late).hasTiesOnAxes());
    for (const double angle : {0.0, 45.0, 90.0, 180.0, -90.0, 37.0, 29.9, 30.1, 359.0})
        QVERIFY2(!RotationMap(QSize(40, 30), angle).hasTiesOnAxes(), qPrintable(QString::number(angle)));
}

OVRANO_TEST_WITHOUT_WINDOWS(TestRotationMap)
#include "tst_rotationmap.moc"
