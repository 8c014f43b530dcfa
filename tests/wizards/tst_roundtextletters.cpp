#include "platform/coverage.h"
#include "support/testprogram.h"
#include "wizards/areamask.h"
#include "wizards/modroundtext.h"
#include "wizards/roundtools.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace ovrano;

namespace {

constexpr int Side = 200;
constexpr std::int16_t Middle = Side / 2;

/// One character at the middle, turned by its start angle about the upper-left corner of its cell.
Raster letter(const QString& text, float degrees, double points = 24) {
    const auto surface = paper(QSize(Side, Side), points);
    PrintRoundText(*surface, text, degrees, 0, Middle, Middle, 0);
    return surface->Image();
}

/// How much ink there is, in pixels.
double inkOf(const Raster& picture) {
    double ink = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ink += (255 - redOf(picture.pixel(x, y))) / 255.0;
    return ink;
}

void addPolygon(AreaMask& mask, const QList<QPointF>& corners) {
    for (qsizetype i = 0; i < corners.size(); ++i)
        mask.addEdge(corners.at(i), corners.at((i + 1) % corners.size()));
}

} // namespace

class RoundTextLettersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void maskSaysHowMuchOfAPixelIsInside();
    void maskOfASlantedEdgeIsExact();
    void overlappingOutlinesCountOnceAndHolesStay();

    void lettersAreSmoothed();
    void quarterTurnsGiveTheSamePixelsTurned_data();
    void quarterTurnsGiveTheSamePixelsTurned();
    void wholeTurnsChangeNothing();
    void turningKeepsTheAmountOfInk();
    void positionIsRoundedHalvesToEven();
    void onlyFamilyAndSizeOfTheFontCount();
    void sizeIsTheSurfacesSizeInPixels();
    void otherFontsAndSizesDoNotDisturb();
    void veryLargeLettersAreDrawnAndCut();
    void lettersTheFontDoesNotHaveAreDrawn();
};

void RoundTextLettersTest::maskSaysHowMuchOfAPixelIsInside() {
    AreaMask mask(QRect(-1, -1, 4, 3));
    addPolygon(mask, {QPointF(-0.5, -1), QPointF(1.25, -1), QPointF(1.25, 1), QPointF(-0.5, 1)});
    const QImage coverage = mask.coverage();
    QCOMPARE(coverage.format(), QImage::Format_Grayscale8);
    const int expected[] = {128, 255, 64, 0};
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 4; ++x)
            QCOMPARE(qGray(coverage.pixel(x, y)), expected[x]);
    for (int x = 0; x < 4; ++x)
        QCOMPARE(qGray(coverage.pixel(x, 2)), 0);
}

void RoundTextLettersTest::maskOfASlantedEdgeIsExact() {
    // A right angle whose long side falls by one pixel over four.
    AreaMask mask(QRect(0, 0, 4, 1));
    addPolygon(mask, {QPointF(0, 0), QPointF(4, 1), QPointF(0, 1)});
    const QImage coverage = mask.coverage();
    for (int x = 0; x < 4; ++x)
        QCOMPARE(qGray(coverage.pixel(x, 0)), qRound(255 * (1 - (x + 0.5) / 4)));
}

void RoundTextLettersTest::overlappingOutlinesCountOnceAndHolesStay() {
    AreaMask mask(QRect(0, 0, 3, 1));
    const auto box = [](double left, double right) {
        return QList<QPointF>{QPointF(left, 0), QPointF(right, 0), QPointF(right, 1), QPointF(left, 1)};
    };
    addPolygon(mask, box(0, 3));
    addPolygon(mask, box(0, 1));
    QList<QPointF> hole = box(2, 3);
    std::reverse(hole.begin(), hole.end());
    addPolygon(mask, hole);
    const QImage coverage = mask.coverage();
    QCOMPARE(qGray(coverage.pixel(0, 0)), 255);
    QCOMPARE(qGray(coverage.pixel(1, 0)), 255);
    QCOMPARE(qGray(coverage.pixel(2, 0)), 0);
}

void RoundTextLettersTest::lettersAreSmoothed() {
    for (const float degrees : {0.0F, 20.0F}) {
        const Raster picture = letter(QStringLiteral("S"), degrees);
        bool between = false, full = false;
        for (int y = 0; y < Side; ++y)
            for (int x = 0; x < Side; ++x) {
                const Colour pixel = picture.pixel(x, y);
                QCOMPARE(redOf(pixel), blueOf(pixel)); // no coloured fringes
                between = between || (pixel != White && pixel != Black);
                full = full || pixel == Black;
            }
        QVERIFY(between && full);
    }
}

void RoundTextLettersTest::quarterTurnsGiveTheSamePixelsTurned_data() {
    QTest::addColumn<float>("degrees");
    for (const float degrees : {0.0F, 0.1F, 22.5F, 45.0F, 71.3F})
        QTest::addRow("%g", static_cast<double>(degrees)) << degrees;
}

void RoundTextLettersTest::quarterTurnsGiveTheSamePixelsTurned() {
    QFETCH(const float, degrees);
    const Raster first = letter(QStringLiteral("R"), degrees);
    QVERIFY(!isBlank(first));
    for (int quarters = 1; quarters < 4; ++quarters)
        QCOMPARE(letter(QStringLiteral("R"), degrees + 90.0F * static_cast<float>(quarters)),
                 quarterTurned(first, quarters));
}

void RoundTextLettersTest::wholeTurnsChangeNothing() {
    const Raster once = letter(QStringLiteral("R"), 33);
    for (const float degrees : {393.0F, -327.0F, -687.0F, 36'033.0F})
        QCOMPARE(letter(QStringLiteral("R"), degrees), once);
    QVERIFY(!(letter(QStringLiteral("R"), -33) == once));
}

void RoundTextLettersTest::turningKeepsTheAmountOfInk() {
    const double upright = inkOf(letter(QStringLiteral("B"), 0));
    for (int degrees = 1; degrees < 90; degrees += 11) {
        const double turned = inkOf(letter(QStringLiteral("B"), static_cast<float>(degrees)));
        QVERIFY2(std::abs(turned - upright) < 0.1 * upright, qPrintable(QString::number(turned / upright)));
    }
}

void RoundTextLettersTest::positionIsRoundedHalvesToEven() {
    const auto at = [](float radius) {
        const auto surface = paper(QSize(Side, Side), 24);
        PrintRoundText(*surface, QStringLiteral("I"), 0, radius, Middle, Middle, 0);
        return inkBox(surface->Image()).top();
    };
    const int top = at(0);
    QCOMPARE(at(10.4F), top - 10);
    QCOMPARE(at(10.5F), top - 10); // 89.5 is 90
    QCOMPARE(at(11.5F), top - 12); // 88.5 is 88
    QCOMPARE(at(11.6F), top - 12);
}

void RoundTextLettersTest::onlyFamilyAndSizeOfTheFontCount() {
    const Raster plain = letter(QStringLiteral("a"), 30);
    const auto surface = paper(QSize(Side, Side), 24);
    QFont font = surface->Font();
    font.setBold(true);
    font.setItalic(true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    surface->setFont(font);
    PrintRoundText(*surface, QStringLiteral("a"), 30, 0, Middle, Middle, 0);
    QCOMPARE(surface->Image(), plain);
    QCOMPARE(surface->Font(), font);

    surface->Cls();
    font.setFamily(QStringLiteral("Liberation Serif"));
    surface->setFont(font);
    PrintRoundText(*surface, QStringLiteral("a"), 30, 0, Middle, Middle, 0);
    QVERIFY(!(surface->Image() == plain));
}

void RoundTextLettersTest::sizeIsTheSurfacesSizeInPixels() {
    for (const int pixels : {20, 40, 80}) {
        const auto surface = paper(QSize(Side, Side), pixels * 0.75);
        PrintRoundText(*surface, QStringLiteral("H"), 0, 0, Middle, Middle, 0);
        const int height = inkBox(surface->Image()).height();
        QVERIFY2(std::abs(height - 0.7 * pixels) < 2, qPrintable(QString::number(height)));
    }
    // A font that measures in points is drawn at 96 dots per inch.
    const auto surface = paper(QSize(Side, Side));
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPointSizeF(24);
    surface->setFont(font);
    PrintRoundText(*surface, QStringLiteral("H"), 0, 0, Middle, Middle, 0);
    QCOMPARE(surface->Image(), letter(QStringLiteral("H"), 0, 24));
}

void RoundTextLettersTest::otherFontsAndSizesDoNotDisturb() {
    const Raster first = letter(QStringLiteral("g"), 12, 20);
    const Raster larger = letter(QStringLiteral("g"), 12, 40);
    QVERIFY(!(first == larger));
    QVERIFY(!(letter(QStringLiteral("g"), 12.1F, 20) == first));
    QVERIFY(!(letter(QStringLiteral("q"), 12, 20) == first));
    QCOMPARE(letter(QStringLiteral("g"), 12, 20), first);
    QCOMPARE(letter(QStringLiteral("g"), 12, 40), larger);
}

void RoundTextLettersTest::veryLargeLettersAreDrawnAndCut() {
    for (const double points : {150.0, 400.0, 99'999.0})
        for (const float degrees : {0.0F, 30.0F}) {
            const auto surface = paper(QSize(Side, Side), points);
            PrintRoundText(*surface, QStringLiteral("M"), degrees, static_cast<float>(points), 0, Middle, 0);
            surface->Cls();
            PrintRoundText(*surface, QStringLiteral("MMM"), degrees, 0, 0, 0, 0);
            QVERIFY(points > 1000 || !isBlank(surface->Image()));
        }
    // On both sides of the size from which on letters are drawn another way they look alike.
    const auto inkPerSquare = [](double points) {
        const auto surface = paper(QSize(800, 800), points);
        PrintRoundText(*surface, QStringLiteral("H"), 200, 0, 400, 400, 0);
        return inkOf(surface->Image()) / (points * points);
    };
    const double small = inkPerSquare(90);
    const double large = inkPerSquare(180);
    QVERIFY2(std::abs(small - large) < 0.02 * large, qPrintable(QString::number(small / large)));
}

void RoundTextLettersTest::lettersTheFontDoesNotHaveAreDrawn() {
    QVERIFY(!isBlank(letter(QString::fromUtf8("\xE3\x81\x82"), 10)));
    QVERIFY(!isBlank(letter(QString::fromUtf8("\xF0\x9F\x91\x8D"), 10)));
    const auto surface = paper();
    surface->setFont(textFont(QStringLiteral("Aucune police de ce nom"), 18, false, false));
    PrintRoundText(*surface, QStringLiteral("abc"), 0, 80, 150, 150, 360);
    QVERIFY(!isBlank(surface->Image()));
}

OVRANO_TEST(RoundTextLettersTest)
#include "tst_roundtextletters.moc"
