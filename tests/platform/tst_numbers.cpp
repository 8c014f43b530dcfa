#include "platform/keyfilter.h"
#include "platform/numbers.h"
#include "platform/runtimeerror.h"
#include "support/testprogram.h"

#include <QtTest>

#include <cmath>
#include <limits>

using namespace ovrano;

class TestNumbers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void roundsHalvesToEven_data();
    void roundsHalvesToEven();
    void overflowsBeyond16Bits();
    void overflowsBeyond32Bits();
    void readsTheNumberAtTheStartOfAText_data();
    void readsTheNumberAtTheStartOfAText();
    void wholeNumberOfAText();
    void pixelOfACoordinate();
    void singlePrecision();
    void keyFilterLetsDigitsAndBackspaceThrough();
};

void TestNumbers::roundsHalvesToEven_data() {
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("nearest");
    QTest::newRow("0.5") << 0.5 << 0.0;
    QTest::newRow("1.5") << 1.5 << 2.0;
    QTest::newRow("2.5") << 2.5 << 2.0;
    QTest::newRow("-0.5") << -0.5 << 0.0;
    QTest::newRow("-1.5") << -1.5 << -2.0;
    QTest::newRow("-2.5") << -2.5 << -2.0;
    QTest::newRow("2.4999") << 2.4999 << 2.0;
    QTest::newRow("2.5001") << 2.5001 << 3.0;
    QTest::newRow("-40.8") << -40.8 << -41.0;
    QTest::newRow("just below a half") << std::nextafter(0.5, 0.0) << 0.0;
    QTest::newRow("no fraction left") << 9007199254740993.0 << 9007199254740992.0;
}

void TestNumbers::roundsHalvesToEven() {
    QFETCH(double, value);
    QTEST(roundHalfEven(value), "nearest");
    QCOMPARE(roundHalfEven(value), std::nearbyint(value));
}

void TestNumbers::overflowsBeyond16Bits() {
    QCOMPARE(toInteger16(32767.4), std::int16_t(32767));
    QCOMPARE(toInteger16(-32768.5), std::int16_t(-32768));
    for (const double outside : {32767.5, -32769.0, 1e300, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        try {
            toInteger16(outside);
            QFAIL("no overflow");
        } catch (const RuntimeError& caught) {
            QCOMPARE(caught.number(), 6);
        }
    }
}

void TestNumbers::overflowsBeyond32Bits() {
    QCOMPARE(toInteger32(2147483647.0), std::numeric_limits<std::int32_t>::max());
    QVERIFY_THROWS_EXCEPTION(RuntimeError, toInteger32(2147483648.0));
}

void TestNumbers::readsTheNumberAtTheStartOfAText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");
    QTest::newRow("empty") << QString() << 0.0;
    QTest::newRow("letters") << "abc" << 0.0;
    QTest::newRow("digits") << "42" << 42.0;
    QTest::newRow("fraction") << "55.6" << 55.6;
    QTest::newRow("comma ends it") << "55,6" << 55.0;
    QTest::newRow("unit behind") << "12 px" << 12.0;
    QTest::newRow("blanks inside") << " 1 2 . 5 " << 12.5;
    QTest::newRow("minus") << "-7" << -7.0;
    QTest::newRow("plus") << "+7" << 7.0;
    QTest::newRow("point first") << ".5" << 0.5;
    QTest::newRow("point last") << "5." << 5.0;
    QTest::newRow("point alone") << "." << 0.0;
    QTest::newRow("exponent") << "1e3" << 1000.0;
    QTest::newRow("exponent with d") << "1D-2" << 0.01;
    QTest::newRow("exponent without digits") << "1e" << 1.0;
    QTest::newRow("hexadecimal") << "&HFF" << 255.0;
    QTest::newRow("hexadecimal without digits") << "&Hx" << 0.0;
    QTest::newRow("two minus signs") << "--5" << 0.0;
}

void TestNumbers::readsTheNumberAtTheStartOfAText() {
    QFETCH(QString, text);
    QTEST(numericValue(text), "value");
}

void TestNumbers::wholeNumberOfAText() {
    QCOMPARE(integerValue(QStringLiteral("55.6")), std::int16_t(56));
    QCOMPARE(integerValue(QStringLiteral("2.5")), std::int16_t(2));
    QCOMPARE(integerValue(QStringLiteral("abc")), std::int16_t(0));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, integerValue(QStringLiteral("99999")));
}

void TestNumbers::pixelOfACoordinate() {
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    QCOMPARE(pixelOf(2.5), 2);
    QCOMPARE(pixelOf(3.5), 4);
    QCOMPARE(pixelOf(-0.6), -1);
    QCOMPARE(pixelOf(32'767.4), 32'767);
    for (const double far : {1e9, 1e300, Infinite}) {
        QCOMPARE(pixelOf(far), 1 << 28);
        QCOMPARE(pixelOf(-far), -(1 << 28));
    }
    QCOMPARE(pixelOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

void TestNumbers::singlePrecision() {
    QCOMPARE(toSingle(0.1), 0.1F);
    QCOMPARE(toSingle(-3.4e38), -3.4e38F);
    for (const double outside : {3.5e38, -1e300, std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()}) {
        try {
            toSingle(outside);
            QFAIL("no overflow");
        } catch (const RuntimeError& caught) {
            QCOMPARE(caught.number(), error::Overflow);
        }
    }
    QCOMPARE(singleValue(QStringLiteral("77.25 px")), 77.25F);
    QCOMPARE(singleValue(QStringLiteral("abc")), 0.0F);
    QVERIFY_THROWS_EXCEPTION(RuntimeError, singleValue(QStringLiteral("1e39")));
}

void TestNumbers::keyFilterLetsDigitsAndBackspaceThrough() {
    for (int code = -1; code < 256; ++code) {
        auto key = static_cast<std::int16_t>(code);
        const bool wanted = code == 8 || (code >= '0' && code <= '9');
        const std::int16_t result = FilterNumericKey(key);
        QCOMPARE(result, std::int16_t(wanted ? code : 0));
        QCOMPARE(key, result);
    }
}

OVRANO_TEST_WITHOUT_WINDOWS(TestNumbers)
#include "tst_numbers.moc"
