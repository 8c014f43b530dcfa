#include "platform/runtimeerror.h"
#include "support/processortime.h"
#include "support/testprogram.h"
#include "wizards/modroundtext.h"
#include "wizards/roundtools.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace ovrano;

namespace {

constexpr float Infinite = std::numeric_limits<float>::infinity();
constexpr float NoNumber = std::numeric_limits<float>::quiet_NaN();
constexpr float Largest = std::numeric_limits<float>::max();
constexpr std::int16_t Middle = 150;

Raster drawn(const QString& text, float start, float radius, float sector, double points = 18) {
    const auto surface = paper(QSize(2 * Middle, 2 * Middle), points);
    PrintRoundText(*surface, text, start, radius, Middle, Middle, sector);
    return surface->Image();
}

/// The box around a letter's ink as it lies in the upright cell: `turned` is the cell's angle in radians,
/// counter-clockwise, `corner` where its upper-left corner lies.
QRectF inkInCell(const Raster& picture, QPointF corner, double turned) {
    double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            if (redOf(picture.pixel(x, y)) >= 128)
                continue;
            const QPointF away = QPointF(x + 0.5, y + 0.5) - corner;
            const double across = away.x() * std::cos(turned) - away.y() * std::sin(turned);
            const double down = away.x() * std::sin(turned) + away.y() * std::cos(turned);
            left = std::min(left, across);
            right = std::max(right, across);
            top = std::min(top, down);
            bottom = std::max(bottom, down);
        }
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

} // namespace

class RoundTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void charactersAreWhatAReaderCounts_data();
    void charactersAreWhatAReaderCounts();

    void fourCharactersOnAQuarter();
    void escapementIsRoundedHalvesToEven();
    void positionsAreSinglePrecision();
    void numbersThatOverflowAreErrors_data();
    void numbersThatOverflowAreErrors();

    void nothingIsDrawnWithoutText();
    void inkLiesRightBelowItsPlace_data();
    void inkLiesRightBelowItsPlace();
    void startOfZeroIsUprightAtTheTop();
    void halfTurnIsUpsideDownAtTheBottom();
    void oneCharacterStandsAtTheStartAngle();
    void negativeSectorRunsCounterClockwise();
    void sectorOfZeroPrintsOverItself();
    void negativeRadiusIsTheOppositeSide();
    void accentedLetterIsOneCharacter();
    void whatIsThereStays();
    void radiusBeyondThePictureShowsNothing();
    void badNumbersEndTheDrawingQuietly_data();
    void badNumbersEndTheDrawingQuietly();
    void whatWasPrintedBeforeAnOverflowStays();
    void tooManyCharactersAreNotDrawn();
    void tenThousandCharactersAreDrawnSoon_data();
    void tenThousandCharactersAreDrawnSoon();
    void positionMovesToTheNextLine();
};

void RoundTextTest::charactersAreWhatAReaderCounts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::newRow("empty") << QString() << 0;
    QTest::newRow("letters and a blank") << QStringLiteral("ab c") << 4;
    QTest::newRow("composed accent") << QStringLiteral("\u00e9t\u00e9") << 3;
    QTest::newRow("combining accents") << QStringLiteral("e\u0301\u0323t") << 2;
    QTest::newRow("two code units") << QString::fromUtf8("\xF0\x9F\x91\x8D!") << 2;
    QTest::newRow("skin tone") << QString::fromUtf8("\xF0\x9F\x91\x8D\xF0\x9F\x8F\xBDx") << 2;
    QTest::newRow("flag") << QString::fromUtf8("\xF0\x9F\x87\xAB\xF0\x9F\x87\xB7") << 1;
}

void RoundTextTest::charactersAreWhatAReaderCounts() {
    QFETCH(const QString, text);
    QFETCH(const int, count);
    const QStringList characters = charactersOf(text);
    QCOMPARE(characters.size(), count);
    QCOMPARE(characters.join(QString()), text);
}

void RoundTextTest::fourCharactersOnAQuarter() {
    const RoundPath path{0, 100, 10, 20, 90.0F / 4};
    const std::int32_t escapements[] = {0, -225, -450, -675};
    const double angles[] = {-180, -202.5, -225, -247.5};
    for (std::int16_t i = 0; i < 4; ++i) {
        const RoundPlace place = path.place(i);
        const double phi = angles[i] * 3.141592654 / 180;
        QCOMPARE(place.escapement, escapements[i]);
        QCOMPARE(place.x, static_cast<float>(100 * std::sin(phi) + 10));
        QCOMPARE(place.y, static_cast<float>(100 * std::cos(phi) + 20));
    }
}

void RoundTextTest::escapementIsRoundedHalvesToEven() {
    QCOMPARE((RoundPath{0.25F, 0, 0, 0, 0}.place(0).escapement), 2);
    QCOMPARE((RoundPath{0.75F, 0, 0, 0, 0}.place(0).escapement), 8);
    QCOMPARE((RoundPath{-0.25F, 0, 0, 0, 0}.place(0).escapement), -2);
    QCOMPARE((RoundPath{0, 0, 0, 0, 0.125F}.place(2).escapement), -2);
    QCOMPARE((RoundPath{0, 0, 0, 0, 0.125F}.place(6).escapement), -8);
}

void RoundTextTest::positionsAreSinglePrecision() {
    const RoundPlace place = RoundPath{0, 30'000.3F, 7, 9, 360.0F / 7}.place(3);
    const float degrees = 0.0F - 180 - 3 * (360.0F / 7);
    const double phi = static_cast<double>(degrees) * 3.141592654 / 180;
    QCOMPARE(place.x, static_cast<float>(static_cast<double>(30'000.3F) * std::sin(phi) + 7));
    QCOMPARE(place.y, static_cast<float>(static_cast<double>(30'000.3F) * std::cos(phi) + 9));
}

void RoundTextTest::numbersThatOverflowAreErrors_data() {
    QTest::addColumn<float>("start");
    QTest::addColumn<float>("radius");
    QTest::addColumn<float>("step");
    QTest::newRow("start beyond 32 bits") << 214'748'480.0F << 10.0F << 1.0F;
    QTest::newRow("step beyond 32 bits") << 0.0F << 10.0F << 214'748'480.0F;
    QTest::newRow("start beyond single precision") << Largest << 10.0F << 1.0F;
    QTest::newRow("step without end") << 0.0F << 10.0F << Infinite;
    QTest::newRow("step that is no number") << 0.0F << 10.0F << NoNumber;
    QTest::newRow("radius without end") << 45.0F << Infinite << 1.0F;
    QTest::newRow("radius that is no number") << 0.0F << NoNumber << 1.0F;
}

void RoundTextTest::numbersThatOverflowAreErrors() {
    QFETCH(const float, start);
    QFETCH(const float, radius);
    QFETCH(const float, step);
    const RoundPath path{start, radius, 0, 0, step};
    try {
        path.place(1);
        QFAIL("nothing was thrown");
    } catch (const RuntimeError& caught) {
        QCOMPARE(caught.number(), error::Overflow);
    }
}

void RoundTextTest::nothingIsDrawnWithoutText() {
    QVERIFY(isBlank(drawn(QString(), 0, 100, 360)));
    QVERIFY(isBlank(drawn(QStringLiteral("   "), 0, 100, 360)));
}

void RoundTextTest::inkLiesRightBelowItsPlace_data() {
    QTest::addColumn<float>("start");
    QTest::addColumn<float>("radius");
    QTest::addColumn<float>("sector");
    for (const float start : {0.0F, 33.0F, 180.0F, 301.5F, -70.0F})
        for (const float radius : {0.0F, 60.0F, 95.5F})
            for (const float sector : {360.0F, 90.0F, -120.0F, 800.0F})
                QTest::addRow("start %g radius %g sector %g", static_cast<double>(start),
                              static_cast<double>(radius), static_cast<double>(sector))
                    << start << radius << sector;
}

void RoundTextTest::inkLiesRightBelowItsPlace() {
    QFETCH(const float, start);
    QFETCH(const float, radius);
    QFETCH(const float, sector);
    // "M" fills the cell from the left edge almost to the right one, and from below the line's top to its
    // base.
    const QSize cell = textExtent(paper()->Font(), QStringLiteral("M"));
    constexpr int Count = 5;
    for (int shown = 0; shown < Count; ++shown) {
        QString text(Count, QLatin1Char(' '));
        text[shown] = QLatin1Char('M');
        const double turned = (static_cast<double>(start) - shown * static_cast<double>(sector) / Count) *
                              std::acos(-1.0) / 180; // counter-clockwise
        const QPointF corner(Middle - static_cast<double>(radius) * std::sin(turned),
                             Middle - static_cast<double>(radius) * std::cos(turned));
        const QRectF ink = inkInCell(drawn(text, start, radius, sector), corner, turned);
        QVERIFY2(ink.left() > 0 && ink.left() < 5, qPrintable(QString::number(ink.left())));
        QVERIFY2(std::abs(ink.right() - cell.width() + 2) < 3, qPrintable(QString::number(ink.right())));
        QVERIFY2(ink.top() > 2 && ink.top() < 8, qPrintable(QString::number(ink.top())));
        QVERIFY2(std::abs(ink.bottom() - cell.height() + 6) < 3, qPrintable(QString::number(ink.bottom())));
    }
}

void RoundTextTest::startOfZeroIsUprightAtTheTop() {
    // "L" tells up from down and left from right: its stem is left, its bar below.
    const Raster picture = drawn(QStringLiteral("L"), 0, 100, 360, 30);
    const QRect box = inkBox(picture);
    QVERIFY(box.left() >= Middle && box.left() < Middle + 8);
    QVERIFY(box.top() > 50 && box.top() < 65);
    QCOMPARE(picture.pixel(box.left() + 2, box.top() + 2), Black);
    QCOMPARE(picture.pixel(box.right() - 2, box.bottom() - 1), Black);
    QCOMPARE(picture.pixel(box.right() - 2, box.top() + 2), White);
}

void RoundTextTest::halfTurnIsUpsideDownAtTheBottom() {
    const Raster picture = drawn(QStringLiteral("L"), 180, 100, 360, 30);
    const QRect box = inkBox(picture);
    QVERIFY(box.right() < Middle && box.right() >= Middle - 8);
    QVERIFY(box.bottom() < 250 && box.bottom() > 235);
    QCOMPARE(picture.pixel(box.right() - 2, box.bottom() - 2), Black);
    QCOMPARE(picture.pixel(box.left() + 2, box.top() + 1), Black);
    QCOMPARE(picture.pixel(box.left() + 2, box.bottom() - 2), White);
}

void RoundTextTest::oneCharacterStandsAtTheStartAngle() {
    QCOMPARE(drawn(QStringLiteral("R"), 90, 80, 10), drawn(QStringLiteral("R"), 90, 80, 360));
    const QRect box = inkBox(drawn(QStringLiteral("R"), 90, 80, 10));
    QVERIFY(box.left() > Middle - 80 && box.right() < Middle - 50);
    QVERIFY(box.bottom() < Middle && box.top() > Middle - 30);
}

void RoundTextTest::negativeSectorRunsCounterClockwise() {
    // The second of four characters: a quarter turn after the top, to one side or the other.
    QVERIFY(inkBox(drawn(QStringLiteral(" L  "), 0, 80, 360)).left() > Middle + 40);
    QVERIFY(inkBox(drawn(QStringLiteral(" L  "), 0, 80, -360)).right() < Middle - 40);
    QCOMPARE(drawn(QStringLiteral(" L  "), 0, 80, -360), drawn(QStringLiteral("L"), 90, 80, 360));
}

void RoundTextTest::sectorOfZeroPrintsOverItself() {
    const Raster both = drawn(QStringLiteral("LI"), 40, 80, 0);
    const Raster one = drawn(QStringLiteral("L"), 40, 80, 0);
    const Raster other = drawn(QStringLiteral("I"), 40, 80, 0);
    for (int y = 0; y < both.height(); ++y)
        for (int x = 0; x < both.width(); ++x)
            QVERIFY(both.pixel(x, y) <= std::min(one.pixel(x, y), other.pixel(x, y)));
}

void RoundTextTest::negativeRadiusIsTheOppositeSide() {
    const QRect above = inkBox(drawn(QStringLiteral("L"), 0, 80, 360));
    QCOMPARE(inkBox(drawn(QStringLiteral("L"), 0, -80, 360)), above.translated(0, 160));
}

void RoundTextTest::accentedLetterIsOneCharacter() {
    // With two characters the second stands at the bottom; a lone accent there would be ink.
    const Raster picture = drawn(QStringLiteral("e\u0301"), 0, 100, 360, 30);
    QVERIFY(!isBlank(picture));
    QVERIFY(inkBox(picture).bottom() < Middle);
    QVERIFY(inkBox(picture).top() < inkBox(drawn(QStringLiteral("e"), 0, 100, 360, 30)).top());
}

void RoundTextTest::whatIsThereStays() {
    const auto surface = paper();
    surface->setBackColor(rgb(10, 200, 30));
    surface->Line(QPointF(0, 0), QPointF(20, 20), rgb(1, 2, 3), BoxStyle::Filled);
    surface->setForeColor(rgb(250, 0, 250));
    PrintRoundText(*surface, QStringLiteral("ab"), 10, 80, Middle, Middle, 360);
    QCOMPARE(surface->Point(5, 5), rgb(1, 2, 3));
    QVERIFY(surface->Picture().isEmpty());
    bool whole = false;
    for (int y = 0; y < 300 && !whole; ++y)
        for (int x = 0; x < 300; ++x)
            whole = whole || surface->Point(x, y) == rgb(250, 0, 250);
    QVERIFY(whole);
    surface->Cls();
    QCOMPARE(surface->Point(5, 5), rgb(10, 200, 30));
}

void RoundTextTest::radiusBeyondThePictureShowsNothing() {
    QVERIFY(isBlank(drawn(QStringLiteral("abcdef"), 0, 1000, 360)));
    QVERIFY(isBlank(drawn(QStringLiteral("abcdef"), 0, -1e30F, 360)));
    QVERIFY(isBlank(drawn(QStringLiteral("abcdef"), 45, Largest, 360)));
    const Raster cut = drawn(QStringLiteral("MM"), 0, 165, 360, 30); // the first letter reaches over the edge
    QVERIFY(!isBlank(cut));
    QCOMPARE(inkBox(cut).top(), 0);
}

void RoundTextTest::badNumbersEndTheDrawingQuietly_data() {
    numbersThatOverflowAreErrors_data();
    QTest::newRow("everything") << NoNumber << NoNumber << NoNumber;
}

void RoundTextTest::badNumbersEndTheDrawingQuietly() {
    QFETCH(const float, start);
    QFETCH(const float, radius);
    QFETCH(const float, step);
    const auto surface = paper();
    PrintRoundText(*surface, QStringLiteral("Texte"), start, radius, Middle, Middle, step * 5);
    PrintRoundText(*surface, QStringLiteral("Texte"), 0, 80, Middle, Middle, 360); // still works
    QVERIFY(!isBlank(surface->Image()));
}

void RoundTextTest::whatWasPrintedBeforeAnOverflowStays() {
    // The third character's escapement is the first that exceeds 32 bits.
    const Raster picture = drawn(QStringLiteral("LLLL"), 0, 80, 4 * 144'000'000.0F);
    const Raster first = drawn(QStringLiteral("LL  "), 0, 80, 4 * 144'000'000.0F);
    QVERIFY(!isBlank(first));
    QCOMPARE(picture, first);
}

void RoundTextTest::tooManyCharactersAreNotDrawn() {
    QVERIFY(!isBlank(drawn(QString(32'767, QLatin1Char('l')), 0, 80, 1, 6)));
    QVERIFY(isBlank(drawn(QString(32'768, QLatin1Char('l')), 0, 80, 1, 6)));
}

void RoundTextTest::tenThousandCharactersAreDrawnSoon_data() {
    QTest::addColumn<double>("points");
    QTest::addColumn<int>("limit"); // milliseconds, far above what it takes
    QTest::newRow("usual") << 18.0 << 5000;
    QTest::newRow("as large as the picture") << 400.0 << 15'000;
}

void RoundTextTest::tenThousandCharactersAreDrawnSoon() {
    QFETCH(const double, points);
    QFETCH(const int, limit);
    const testing::ProcessorTime time;
    QVERIFY(!isBlank(drawn(QString(10'000, QLatin1Char('x')), 0, 100, 360, points)));
    QVERIFY2(time.milliseconds() < limit, qPrintable(QString::number(time.milliseconds())));
}

void RoundTextTest::positionMovesToTheNextLine() {
    const auto surface = paper();
    const double line = surface->TextHeight(QStringLiteral("a"));
    surface->setCurrentX(5);
    PrintRoundText(*surface, QStringLiteral("a"), 0, 100, Middle, Middle, 360);
    QCOMPARE(surface->CurrentX(), 0.0);
    QCOMPARE(surface->CurrentY(), Middle - 100 + line);
    PrintRoundText(*surface, QStringLiteral("ab"), 0, 100, Middle, Middle, 360);
    QCOMPARE(surface->CurrentY(), Middle + 100 + line);
    surface->setCurrentX(5);
    PrintRoundText(*surface, QString(), 0, 100, Middle, Middle, 360); // prints nothing
    QCOMPARE(surface->CurrentX(), 5.0);
}

OVRANO_TEST(RoundTextTest)
#include "tst_roundtext.moc"
