#include "platform/runtimeerror.h"
#include "platform/smoothprint.h"
#include "support/testprogram.h"

#include <QFontMetrics>
#include <QSet>
#include <QtTest>

#include <limits>

using namespace ovrano;

namespace {

constexpr Colour Ink = rgb(0, 64, 128);

QFont sans(double points, const TextStyle& style = {}) {
    return smoothTextFont(QStringLiteral("Liberation Sans"), points, style);
}

QSet<Colour> coloursOf(const Surface& surface) {
    QSet<Colour> colours;
    for (int y = 0; y < surface.innerSize().height(); ++y)
        for (int x = 0; x < surface.innerSize().width(); ++x)
            colours.insert(surface.Image().pixel(x, y));
    return colours;
}

/// Pixels of a row that are not white.
int inkInRow(const Surface& surface, int y) {
    int count = 0;
    for (int x = 0; x < surface.innerSize().width(); ++x)
        count += surface.Image().pixel(x, y) != White ? 1 : 0;
    return count;
}

} // namespace

class SmoothTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void edgesAreSoft();
    void sizeDependsOn96DotsPerInch();
    void sizeIsRoundedHalvesToEven();
    void sizeHasBounds();
    void styleIsTaken();
    void partOutsideIsCut();
    void emptyTextLeavesNothing();
    void maskKeepsTheInkAlone();
    void windowCutsTheMask();
    void veryLongTextIsMeasuredAndDrawn();
    void windowTooLargeForMemory();
};

void SmoothTextTest::edgesAreSoft() {
    Surface surface(QStringLiteral("s"), QSize(200, 90));
    printSmooth(surface, sans(48), QStringLiteral("Sé"), QPoint(5, 5), Ink);
    const QSet<Colour> colours = coloursOf(surface);
    QVERIFY(colours.contains(White));
    QVERIFY(colours.contains(Ink));
    QVERIFY2(colours.size() > 20, qPrintable(QString::number(colours.size())));
    // No coloured fringes: between white and the ink all channels go the same way.
    for (const Colour colour : colours)
        QVERIFY(redOf(colour) <= greenOf(colour) && greenOf(colour) <= blueOf(colour));
}

void SmoothTextTest::sizeDependsOn96DotsPerInch() {
    QCOMPARE(sans(72).pixelSize(), 96);
    QCOMPARE(sans(24).pixelSize(), 32);
    QCOMPARE(sans(0).pixelSize(), 1);
    QCOMPARE(sans(-3).pixelSize(), 1);
    QCOMPARE(textPixelSize(7.5), 10);
    QCOMPARE(sans(24).hintingPreference(), QFont::PreferFullHinting);
}

void SmoothTextTest::sizeIsRoundedHalvesToEven() {
    QCOMPARE(textPixelSize(7.875), 10); // 10.5
    QCOMPARE(textPixelSize(8.625), 12); // 11.5
    QCOMPARE(textPixelSize(7.88), 11);
}

void SmoothTextTest::sizeHasBounds() {
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    for (const double huge : {1e6, 1e300, Infinite})
        QCOMPARE(textPixelSize(huge), 13'333);
    for (const double none : {-1e300, -Infinite, std::numeric_limits<double>::quiet_NaN()})
        QCOMPARE(textPixelSize(none), 1);
}

void SmoothTextTest::styleIsTaken() {
    const QFont all = sans(24, {.bold = true, .italic = true, .underline = true, .strikeOut = true});
    QVERIFY(all.bold() && all.italic() && all.underline() && all.strikeOut());
    const QFont none = sans(24);
    QVERIFY(!none.bold() && !none.italic() && !none.underline() && !none.strikeOut());

    Surface plain(QStringLiteral("p"), QSize(200, 90));
    printSmooth(plain, sans(48), QStringLiteral("nn"), QPoint(5, 5), Ink);
    Surface lined(QStringLiteral("l"), QSize(200, 90));
    printSmooth(lined, sans(48, {.underline = true}), QStringLiteral("nn"), QPoint(5, 5), Ink);
    const int below = 5 + QFontMetrics(sans(48)).ascent() + QFontMetrics(sans(48)).underlinePos();
    QCOMPARE(inkInRow(plain, below), 0);
    QVERIFY(inkInRow(lined, below) >= QFontMetrics(sans(48)).horizontalAdvance(QStringLiteral("nn")) - 1);
}

void SmoothTextTest::partOutsideIsCut() {
    Surface whole(QStringLiteral("w"), QSize(300, 120));
    printSmooth(whole, sans(60), QStringLiteral("Texte"), QPoint(40, 20), Ink);
    Surface part(QStringLiteral("p"), QSize(90, 50));
    printSmooth(part, sans(60), QStringLiteral("Texte"), QPoint(-20, -20), Ink); // 60 to the left, 40 up
    QCOMPARE(part.Image(), Raster::fromImage(whole.Image().toImage(QRect(60, 40, 90, 50))));
    printSmooth(part, sans(60), QStringLiteral("Texte"), QPoint(5000, -5000), Ink);
    Surface empty(QStringLiteral("e"));
    printSmooth(empty, sans(60), QStringLiteral("Texte"), QPoint(0, 0), Ink);
    QVERIFY(empty.Image().isEmpty());
}

void SmoothTextTest::emptyTextLeavesNothing() {
    Surface surface(QStringLiteral("s"), QSize(50, 50));
    printSmooth(surface, sans(30), QString(), QPoint(5, 5), Ink);
    printSmooth(surface, sans(30), QStringLiteral("   "), QPoint(5, 5), Ink);
    QCOMPARE(coloursOf(surface), QSet<Colour>({White}));
    QVERIFY(SmoothTextMask(sans(30), QStringLiteral(" "), QRect(0, 0, 50, 50)).ink().isEmpty());
}

void SmoothTextTest::maskKeepsTheInkAlone() {
    const SmoothTextMask mask(sans(40), QStringLiteral("ig"), QRect(-60, -60, 300, 300));
    const QImage& coverage = mask.coverage();
    QCOMPARE(coverage.format(), QImage::Format_Grayscale8);
    QCOMPARE(coverage.size(), mask.ink().size());
    bool left = false, right = false, top = false, bottom = false, full = false;
    for (int y = 0; y < coverage.height(); ++y) {
        const uchar* row = coverage.constScanLine(y);
        left = left || row[0] > 0;
        right = right || row[coverage.width() - 1] > 0;
        full = full || std::find(row, row + coverage.width(), 255) != row + coverage.width();
    }
    const auto isInk = [](uchar value) { return value > 0; };
    const auto anyInk = [&](int y) {
        const uchar* row = coverage.constScanLine(y);
        return std::any_of(row, row + coverage.width(), isInk);
    };
    top = anyInk(0);
    bottom = anyInk(coverage.height() - 1);
    QVERIFY(left && right && top && bottom && full);
}

void SmoothTextTest::windowCutsTheMask() {
    const QRect window(10, 15, 20, 12);
    const SmoothTextMask whole(sans(40), QStringLiteral("Mg"), QRect(-60, -60, 300, 300));
    const SmoothTextMask part(sans(40), QStringLiteral("Mg"), window);
    QVERIFY(window.contains(part.ink()));
    const QRect place = part.ink().translated(-whole.ink().topLeft());
    QCOMPARE(part.coverage(), whole.coverage().copy(place));
    QVERIFY(SmoothTextMask(sans(40), QStringLiteral("Mg"), QRect()).ink().isEmpty());
}

void SmoothTextTest::veryLongTextIsMeasuredAndDrawn() {
    // As long as a field can hold, in letters so wide that the length in 64ths of a pixel exceeds 32 bits.
    const QString text(32'767, QLatin1Char('W'));
    QVERIFY(textExtent(sans(999), text).width() > 1'000'000);
    Surface surface(QStringLiteral("s"), QSize(300, 200));
    printSmooth(surface, sans(999), text, QPoint(-20'000, -600), Ink);
    QVERIFY(coloursOf(surface).contains(Ink));
    // What can be seen is what a shorter text shows.
    Surface shorter(QStringLiteral("t"), QSize(300, 200));
    printSmooth(shorter, sans(999), text.left(40), QPoint(-20'000, -600), Ink);
    QCOMPARE(surface.Image(), shorter.Image());
}

void SmoothTextTest::windowTooLargeForMemory() {
    constexpr QRect Huge(0, 0, 1 << 24, 1 << 24);
    for (const bool smooth : {true, false}) {
        try {
            if (smooth)
                SmoothTextMask(sans(20), QStringLiteral("a"), Huge);
            else
                TextMask(sans(20), QStringLiteral("a"), Huge);
            QFAIL("nothing was thrown");
        } catch (const RuntimeError& caught) {
            QCOMPARE(caught.number(), error::OutOfMemory);
        }
    }
}

OVRANO_TEST(SmoothTextTest)
#include "tst_smoothtext.moc"
