#include "platform/smoothprint.h"
#include "support/testprogram.h"
#include "wizards/twocolourtext.h"

#include <QtTest>

#include <array>
#include <cmath>

using namespace ovrano;

namespace {

constexpr Colour Face = rgb(0, 64, 128);
constexpr Colour Behind = rgb(200, 90, 10);

/// Levels by which a channel may differ from printing the layers one after the other without any rounding:
/// half a level each for the coverage and for the blending of every run of one colour, of which there are at
/// most three.
constexpr double ExactTolerance = 2;

/// The plain way: one print after the other. Each of them rounds every channel, which a thin edge under many
/// layers feels.
void printOneByOne(Surface& surface, const QString& text, const std::vector<TextPrint>& prints) {
    for (const TextPrint& print : prints)
        printSmooth(
            surface, surface.Font(), text,
            QPoint(static_cast<int>(std::nearbyint(print.x)), static_cast<int>(std::nearbyint(print.y))),
            print.colour);
}

/// One channel of a surface, layer by layer without any rounding in between.
class ExactChannel {
public:
    ExactChannel(const Surface& start, int (*channel)(Colour))
        : m_size(start.innerSize())
        , m_channel(channel)
        , m_values(static_cast<std::size_t>(m_size.width() * m_size.height())) {
        forEach(start, [channel](double& value, Colour pixel) { value = channel(pixel); });
    }

    void print(const QFont& font, const QString& text, const TextPrint& print) {
        // Black on white shows the coverage.
        Surface page(QStringLiteral("page"), m_size);
        page.setFont(font);
        printOneByOne(page, text, {{print.x, print.y, Black}});
        const double ink = m_channel(print.colour);
        forEach(page, [ink](double& value, Colour pixel) {
            const double cover = (255 - redOf(pixel)) / 255.0;
            value = value * (1 - cover) + ink * cover;
        });
    }

    double worstDifference(const Surface& surface) {
        double worst = 0;
        forEach(surface, [&](double& value, Colour pixel) {
            worst = std::max(worst, std::abs(value - m_channel(pixel)));
        });
        return worst;
    }

private:
    template<typename Visit>
    void forEach(const Surface& surface, Visit&& visit) {
        std::size_t at = 0;
        for (int y = 0; y < m_size.height(); ++y)
            for (int x = 0; x < m_size.width(); ++x)
                visit(m_values.at(at++), surface.Image().pixel(x, y));
    }

    QSize m_size;
    int (*m_channel)(Colour);
    std::vector<double> m_values;
};

Surface& prepared(Surface& surface, const QFont& font) {
    surface.setBackColor(rgb(250, 240, 200));
    surface.setFont(font);
    return surface;
}

std::vector<TextPrint> withFace(std::vector<TextPrint> prints) {
    prints.push_back(facePrint(Face));
    return prints;
}

QPoint farthest(double degrees) {
    const TextPrint last = extrusionPrints(Behind, 20, extrusionAngle(degrees)).back();
    return QPoint(qRound(last.x) - TextOriginX, qRound(last.y) - TextOriginY);
}

} // namespace

class TwoColourTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reliefIsWhiteThenBlack();
    void outlineIsNinePrints();
    void extrusionRunsAway();
    void angleFormula();
    void directions();
    void digitsOnly_data();
    void digitsOnly();
    void fullTurns_data();
    void fullTurns();
    void fullTurnsAreRepeatedSubtraction();
    void manyDigits();
    void agreesWithSinglePrints_data();
    void agreesWithSinglePrints();
    void positionsRoundHalvesToEven();
    void faceComesLast();
    void nothingToPrint();
    void textBeyondTheSurface();
};

void TwoColourTest::reliefIsWhiteThenBlack() {
    const std::vector<TextPrint> expected = {{14, 14, White}, {14, 15, White}, {15, 14, White},
                                             {15, 15, White}, {15, 15, Black}, {15, 16, Black},
                                             {16, 15, Black}, {16, 16, Black}};
    QVERIFY(reliefPrints() == expected);
}

void TwoColourTest::outlineIsNinePrints() {
    const std::vector<TextPrint> expected = {{14, 14, Behind}, {14, 15, Behind}, {14, 16, Behind},
                                             {15, 14, Behind}, {15, 15, Behind}, {15, 16, Behind},
                                             {16, 14, Behind}, {16, 15, Behind}, {16, 16, Behind}};
    QVERIFY(outlinePrints(Behind) == expected);
}

void TwoColourTest::extrusionRunsAway() {
    const double angle = 0.7;
    const std::vector<TextPrint> prints = extrusionPrints(Behind, 60, angle);
    QCOMPARE(prints.size(), 60U);
    for (int k = 1; k <= 60; ++k) {
        const TextPrint& print = prints.at(static_cast<std::size_t>(k) - 1);
        QVERIFY(print.x == static_cast<float>(15 + k * std::cos(angle)));
        QVERIFY(print.y == static_cast<float>(15 + k * std::sin(angle)));
        QCOMPARE(print.colour, Behind);
    }
    QVERIFY(extrusionPrints(Behind, 0, angle).empty());
}

void TwoColourTest::angleFormula() {
    QCOMPARE(extrusionAngle(10), 1.5708 + 10 * 6.2832 / 360);
    QVERIFY(extrusionAngle(7) == 3.1416 / 2 + 6.2832 / (360 / 7.0));
    // Four decimals of pi, not all of them.
    QVERIFY(std::abs(extrusionAngle(180) - 1.5 * M_PI) > 1e-6);
}

void TwoColourTest::directions() {
    QCOMPARE(farthest(1), QPoint(0, 20));
    QCOMPARE(farthest(90), QPoint(-20, 0));
    QCOMPARE(farthest(180), QPoint(0, -20));
    QCOMPARE(farthest(270), QPoint(20, 0));
}

void TwoColourTest::digitsOnly_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("digits") << QStringLiteral("0123456789") << true;
    QTest::newRow("point") << QStringLiteral("12.5") << false;
    QTest::newRow("blank before") << QStringLiteral(" 12") << false;
    QTest::newRow("blank alone") << QStringLiteral(" ") << false;
    QTest::newRow("minus") << QStringLiteral("-5") << false;
    QTest::newRow("letters") << QStringLiteral("12a") << false;
    QTest::newRow("slash, just below 0") << QStringLiteral("/") << false;
    QTest::newRow("colon, just above 9") << QStringLiteral(":") << false;
    QTest::newRow("Arabic digits") << QStringLiteral("\u0661\u0662") << false;
    QTest::newRow("superscript") << QStringLiteral("\u00b2") << false;
}

void TwoColourTest::digitsOnly() {
    QFETCH(QString, text);
    QTEST(isDigitsOnly(text), "accepted");
}

void TwoColourTest::fullTurns_data() {
    QTest::addColumn<QString>("digits");
    QTest::addColumn<QString>("rest");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("below") << QStringLiteral("359") << QStringLiteral("359");
    QTest::newRow("leading zeros stay") << QStringLiteral("007") << QStringLiteral("007");
    QTest::newRow("one turn") << QStringLiteral("360") << QStringLiteral("0");
    QTest::newRow("370") << QStringLiteral("370") << QStringLiteral("10");
    QTest::newRow("leading zero") << QStringLiteral("0370") << QStringLiteral("10");
    QTest::newRow("two turns less one") << QStringLiteral("719") << QStringLiteral("359");
    QTest::newRow("20 nines") << QString(20, u'9') << QStringLiteral("279");
    QTest::newRow("30 digits") << QStringLiteral("1") + QString(29, u'0') << QStringLiteral("280");
    QTest::newRow("30 digits and 7") << QStringLiteral("1") + QString(28, u'0') + u'7'
                                     << QStringLiteral("287");
}

void TwoColourTest::fullTurns() {
    QFETCH(QString, digits);
    QTEST(withoutFullTurns(digits), "rest");
}

void TwoColourTest::fullTurnsAreRepeatedSubtraction() {
    for (int number = 0; number < 4000; ++number) {
        int rest = number;
        while (rest >= 360)
            rest -= 360;
        QCOMPARE(withoutFullTurns(QString::number(number)), QString::number(rest));
    }
}

void TwoColourTest::manyDigits() {
    QCOMPARE(withoutFullTurns(QString(10000, u'9')), QStringLiteral("279"));
    QCOMPARE(withoutFullTurns(QString(10000, u'0') + u'5').size(), 10001);
}

void TwoColourTest::agreesWithSinglePrints_data() {
    QTest::addColumn<double>("points");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("depth");
    QTest::addColumn<double>("degrees");
    // Depth 0 stands for the outline, -1 for the relief.
    for (const int effect : {0, -1})
        for (const double points : {8.0, 30.0})
            QTest::addRow("effect %d, %g points", effect, points)
                << points << int(points) % 16 << effect << 0.0;
    for (const double degrees : {1.0, 45.0, 90.0, 137.0, 180.0, 223.0, 270.0, 359.0})
        QTest::addRow("angle %g", degrees) << 24.0 << 0 << 12 << degrees;
    for (const int depth : {1, 2, 30, 60})
        QTest::addRow("depth %d", depth) << 36.0 << 1 << depth << 315.0;
    for (const int style : {2, 4, 8, 15})
        QTest::addRow("style %d", style) << 20.0 << style << 20 << 90.0;
}

void TwoColourTest::agreesWithSinglePrints() {
    QFETCH(double, points);
    QFETCH(int, style);
    QFETCH(int, depth);
    QFETCH(double, degrees);
    const QString text = QStringLiteral("Été Og");
    const QFont font =
        smoothTextFont(QStringLiteral("Liberation Serif"), points,
                       {(style & 1) != 0, (style & 2) != 0, (style & 4) != 0, (style & 8) != 0});
    const std::vector<TextPrint> prints =
        withFace(depth == 0    ? outlinePrints(Behind)
                 : depth == -1 ? reliefPrints()
                               : extrusionPrints(Behind, depth, extrusionAngle(degrees)));
    Surface fast(QStringLiteral("fast"), QSize(160, 90));
    Surface plain(QStringLiteral("plain"), QSize(160, 90));
    prepared(plain, font);
    std::array exact = {ExactChannel(plain, redOf), ExactChannel(plain, greenOf),
                        ExactChannel(plain, blueOf)};
    for (ExactChannel& channel : exact)
        for (const TextPrint& print : prints)
            channel.print(font, text, print);

    printTextLayers(prepared(fast, font), text, prints);
    printOneByOne(plain, text, prints);
    QVERIFY(fast.Image().pixel(0, 0) == fast.BackColor());
    for (ExactChannel& channel : exact) {
        const double difference = channel.worstDifference(fast);
        QVERIFY2(difference <= ExactTolerance, qPrintable(QString::number(difference)));
        // And never farther from it than single prints are, but for that tolerance.
        QVERIFY(difference <= channel.worstDifference(plain) + ExactTolerance);
    }
}

void TwoColourTest::positionsRoundHalvesToEven() {
    const QFont font = smoothTextFont(QStringLiteral("Liberation Sans"), 20);
    for (const float x : {14.5F, 15.5F, 15.49F, -3.5F, -2.5F}) {
        Surface fast(QStringLiteral("fast"), QSize(90, 60));
        Surface plain(QStringLiteral("plain"), QSize(90, 60));
        printTextLayers(prepared(fast, font), QStringLiteral("Été"), {{x, 16.5F, Face}});
        printOneByOne(prepared(plain, font), QStringLiteral("Été"), {{x, 16.5F, Face}});
        QCOMPARE(fast.Image(), plain.Image());
    }
}

void TwoColourTest::faceComesLast() {
    const QFont font = smoothTextFont(QStringLiteral("Liberation Sans"), 40, {.bold = true});
    const SmoothTextMask mask(font, QStringLiteral("I"), QRect(-100, -100, 300, 300));
    const QPoint middle = mask.ink().center() + QPoint(TextOriginX, TextOriginY);
    for (const std::vector<TextPrint>& prints :
         {reliefPrints(), outlinePrints(Behind), extrusionPrints(Behind, 30, extrusionAngle(90))}) {
        Surface surface(QStringLiteral("s"), QSize(100, 90));
        printTextLayers(prepared(surface, font), QStringLiteral("I"), withFace(prints));
        QCOMPARE(surface.Image().pixel(middle.x(), middle.y()), Face);
    }
}

void TwoColourTest::nothingToPrint() {
    const QFont font = smoothTextFont(QStringLiteral("Liberation Sans"), 40);
    Surface surface(QStringLiteral("s"), QSize(100, 90));
    prepared(surface, font);
    const Raster before = surface.Image();
    printTextLayers(surface, QString(), withFace(outlinePrints(Behind)));
    printTextLayers(surface, QStringLiteral("  "), withFace(reliefPrints()));
    printTextLayers(surface, QStringLiteral("Texte"), {});
    QCOMPARE(surface.Image(), before);
}

void TwoColourTest::textBeyondTheSurface() {
    const QFont font = smoothTextFont(QStringLiteral("Liberation Sans"), 72);
    const std::vector<TextPrint> prints = withFace(extrusionPrints(Behind, 40, extrusionAngle(250)));
    Surface large(QStringLiteral("large"), QSize(500, 200));
    printTextLayers(prepared(large, font), QStringLiteral("Texte"), prints);
    Surface small(QStringLiteral("small"), QSize(70, 50));
    printTextLayers(prepared(small, font), QStringLiteral("Texte"), prints);
    QCOMPARE(small.Image(), Raster::fromImage(large.Image().toImage(QRect(0, 0, 70, 50))));
    Surface none(QStringLiteral("none"));
    printTextLayers(prepared(none, font), QStringLiteral("Texte"), prints);
    QVERIFY(none.Image().isEmpty());
}

OVRANO_TEST(TwoColourTest)
#include "tst_twocolour.moc"
