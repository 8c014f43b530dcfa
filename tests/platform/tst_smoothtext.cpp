#include "platform/coverage.h"
#include "platform/surface.h"
#include "platform/textmask.h"

#include <QFontMetrics>
#include <QSet>
#include <QtTest>

using namespace ovrano;

namespace {

constexpr Colour Ink = rgb(0, 64, 128);

QFont sans(double points, const TextStyle& style = {}) {
    return smoothTextFont(QStringLiteral("Liberation Sans"), points, style);
}

void printAt(Surface& surface, const QFont& font, const QString& text, int x, int y, Colour colour) {
    surface.setFont(font);
    surface.setForeColor(colour);
    surface.setCurrentX(x);
    surface.setCurrentY(y);
    surface.Print(text);
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
    void unsmoothedFontsKeepTwoColours();
    void printsWhereTheMaskSays();
    void positionMovesToTheNextLine();
    void sizeDependsOn96DotsPerInch();
    void styleIsTaken();
    void partOutsideIsCut();
    void emptyTextLeavesNothing();
    void maskKeepsTheInkAlone();
    void windowCutsTheMask();
    void printedOncePerText();
};

void SmoothTextTest::edgesAreSoft() {
    Surface surface(QStringLiteral("s"), QSize(200, 90));
    printAt(surface, sans(48), QStringLiteral("Sé"), 5, 5, Ink);
    const QSet<Colour> colours = coloursOf(surface);
    QVERIFY(colours.contains(White));
    QVERIFY(colours.contains(Ink));
    QVERIFY2(colours.size() > 20, qPrintable(QString::number(colours.size())));
    // No coloured fringes: between white and the ink all channels go the same way.
    for (const Colour colour : colours)
        QVERIFY(redOf(colour) <= greenOf(colour) && greenOf(colour) <= blueOf(colour));
}

void SmoothTextTest::unsmoothedFontsKeepTwoColours() {
    Surface surface(QStringLiteral("s"), QSize(200, 90));
    printAt(surface, textFont(QStringLiteral("Liberation Sans"), 48, false, false), QStringLiteral("Sé"), 5,
            5, Ink);
    QCOMPARE(coloursOf(surface), QSet<Colour>({White, Ink}));
    QVERIFY(!isSmooth(surface.Font()));
    QVERIFY(!isSmooth(QFont()));
    QVERIFY(isSmooth(sans(48)));
}

void SmoothTextTest::printsWhereTheMaskSays() {
    Surface surface(QStringLiteral("s"), QSize(200, 90));
    printAt(surface, sans(40, {.italic = true}), QStringLiteral("fg"), 11, 7, Ink);
    const SmoothTextMask mask(surface.Font(), QStringLiteral("fg"), QRect(-50, -50, 300, 300));
    Surface blended(QStringLiteral("b"), QSize(200, 90));
    blendCoverage(blended, mask.coverage(), QPoint(11, 7) + mask.ink().topLeft(), Ink);
    QCOMPARE(surface.Image(), blended.Image());
    QVERIFY(coloursOf(surface).size() > 20);
}

void SmoothTextTest::positionMovesToTheNextLine() {
    Surface surface(QStringLiteral("s"), QSize(200, 90));
    printAt(surface, sans(20), QStringLiteral("Texte"), 11, 7, Ink);
    QCOMPARE(surface.CurrentX(), 0.0);
    QCOMPARE(surface.CurrentY(), 7.0 + QFontMetrics(surface.Font()).height());
    QCOMPARE(surface.TextWidth(QStringLiteral("Texte")),
             double(QFontMetrics(surface.Font()).horizontalAdvance(QStringLiteral("Texte"))));
}

void SmoothTextTest::sizeDependsOn96DotsPerInch() {
    QCOMPARE(sans(72).pixelSize(), 96);
    QCOMPARE(sans(24).pixelSize(), 32);
    QCOMPARE(sans(0).pixelSize(), 1);
    QCOMPARE(sans(-3).pixelSize(), 1);
    QCOMPARE(textPixelSize(7.5), 10);
    QCOMPARE(sans(24).hintingPreference(), QFont::PreferFullHinting);
}

void SmoothTextTest::styleIsTaken() {
    const QFont all = sans(24, {.bold = true, .italic = true, .underline = true, .strikeOut = true});
    QVERIFY(all.bold() && all.italic() && all.underline() && all.strikeOut());
    const QFont none = sans(24);
    QVERIFY(!none.bold() && !none.italic() && !none.underline() && !none.strikeOut());

    Surface plain(QStringLiteral("p"), QSize(200, 90));
    printAt(plain, sans(48), QStringLiteral("nn"), 5, 5, Ink);
    Surface lined(QStringLiteral("l"), QSize(200, 90));
    printAt(lined, sans(48, {.underline = true}), QStringLiteral("nn"), 5, 5, Ink);
    const int below = 5 + QFontMetrics(sans(48)).ascent() + QFontMetrics(sans(48)).underlinePos();
    QCOMPARE(inkInRow(plain, below), 0);
    QVERIFY(inkInRow(lined, below) >= int(lined.TextWidth(QStringLiteral("nn"))) - 1);
}

void SmoothTextTest::partOutsideIsCut() {
    Surface whole(QStringLiteral("w"), QSize(300, 120));
    printAt(whole, sans(60), QStringLiteral("Texte"), 40, 20, Ink);
    Surface part(QStringLiteral("p"), QSize(90, 50));
    printAt(part, sans(60), QStringLiteral("Texte"), -20, -20, Ink); // 60 to the left, 40 up
    QCOMPARE(part.Image(), Raster::fromImage(whole.Image().toImage(QRect(60, 40, 90, 50))));
    printAt(part, sans(60), QStringLiteral("Texte"), 5000, -5000, Ink);
    Surface empty(QStringLiteral("e"));
    printAt(empty, sans(60), QStringLiteral("Texte"), 0, 0, Ink);
    QVERIFY(empty.Image().isEmpty());
}

void SmoothTextTest::emptyTextLeavesNothing() {
    Surface surface(QStringLiteral("s"), QSize(50, 50));
    printAt(surface, sans(30), QString(), 5, 5, Ink);
    printAt(surface, sans(30), QStringLiteral("   "), 5, 5, Ink);
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

void SmoothTextTest::printedOncePerText() {
    SmoothTextMaskCache cache;
    for (int offset = 0; offset < 10; ++offset)
        cache.mask(sans(30), QStringLiteral("Texte"), QRect(0, 0, 200, 60).translated(-offset, -offset));
    QCOMPARE(cache.misses(), 1);
    cache.mask(sans(30, {.underline = true}), QStringLiteral("Texte"), QRect(0, 0, 200, 60));
    QCOMPARE(cache.misses(), 2);
}

QTEST_MAIN(SmoothTextTest)
#include "tst_smoothtext.moc"
