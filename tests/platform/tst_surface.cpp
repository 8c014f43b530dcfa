#include "platform/runtimeerror.h"
#include "platform/surface.h"
#include "support/grid.h"
#include "support/testprogram.h"

#include <QSignalSpy>
#include <QtTest>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(ovrano::Surface&)>)

using namespace ovrano;

namespace {

constexpr Colour Red = rgb(255, 0, 0);
constexpr Colour Blue = rgb(0, 0, 255);

Surface& painted(Surface& surface, const QStringList& rows) {
    surface.setInnerSize(grid(rows).size());
    surface.setPicture(grid(rows));
    return surface;
}

/// Every pixel of the outline of a box, both corners included, inverted once where the dots are on.
Raster slowDottedFrame(const Raster& before, QPoint a, QPoint b) {
    const int left = std::min(a.x(), b.x()), right = std::max(a.x(), b.x());
    const int top = std::min(a.y(), b.y()), bottom = std::max(a.y(), b.y());
    Raster after = before;
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x) {
            const bool edge = x == left || x == right || y == top || y == bottom;
            const bool on = ((x - left) + (y - top)) % 6 < 3;
            if (edge && on && before.pixel(x, y) != InvalidColour)
                after.setPixel(x, y, before.pixel(x, y) ^ White);
        }
    return after;
}

Raster noise(QSize size) {
    QImage noise(size, QImage::Format_RGB32);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, qRgb((x * 8) & 255, (y * 10) & 255, (x * y) & 255));
    return Raster::fromImage(noise);
}

/// What a painter makes of an area of a surface.
Raster shown(const Surface& surface, const QRect& area) {
    Raster painted(area.size(), rgb(1, 2, 3));
    surface.readShown(area, [&](const QImage& pixels, const QRect& part, QPoint at) {
        painted.copyFrom(Raster::fromImage(pixels), part, at - area.topLeft());
    });
    return painted;
}

Raster partOf(const Raster& raster, const QRect& area) {
    return Raster::fromImage(raster.toImage(area));
}

} // namespace

class TestSurface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWhiteWhateverTheTheme();
    void clsDropsWhatIsNotCommitted();
    void commitMakesDrawingPersistent();
    void committedEditIsWrittenInPlace();
    void failedEditLeavesAPicture();
    void pictureIsLaidFromTheCorner();
    void largerShowsBackgroundSmallerCuts();
    void drawingSurvivesAChangeOfSize();
    void autoSizeTakesThePicturesSize();
    void borderStaysOutside();
    void negativeSizesAreRefused();
    void changedBackgroundShowsOnlyBesideThePicture();
    void pointOutsideIsInvalid();
    void twipsAreCutToPixels();
    void pixelsAreRoundedHalfToEven();
    void filledBoxIncludesBothCorners();
    void dottedFrameTwiceIsGone_data();
    void dottedFrameTwiceIsGone();
    void outlineIsShownWithoutCopyingTiles();
    void outlineSurvivesWhatComesAfterIt_data();
    void outlineSurvivesWhatComesAfterIt();
    void copyFromClips();
    void snapshotSharesMemory();
    void clsTouchesOnlyWhatWasDrawn();
    void announcesWhatChanged();
    void printUsesForeColourAndPosition();
    void printInTwips();
    void printLeavesTwoColours();
    void printOutsideIsIgnored();
    void contentsArePutBack();
    void changeWithoutMemoryLeavesAllAsItWas();
    void textIsRenderedOncePerText();
    void textSizeDependsOn96DotsPerInch();
};

void TestSurface::startsWhiteWhateverTheTheme() {
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    QGuiApplication::setPalette(dark);
    const Surface surface(QStringLiteral("picTemp"), QSize(3, 2));
    QCOMPARE(rowsOf(surface.Image()), QStringList({"...", "..."}));
    QCOMPARE(surface.objectName(), QStringLiteral("picTemp"));
    QGuiApplication::setPalette(QPalette());
}

void TestSurface::clsDropsWhatIsNotCommitted() {
    Surface surface(QStringLiteral("s"));
    painted(surface, {"rg", "by"});
    surface.Line(QPointF(0, 0), QPointF(1, 0), Black, BoxStyle::Filled);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"##", "by"}));
    QCOMPARE(rowsOf(surface.Picture()), QStringList({"rg", "by"}));
    surface.setCurrentX(5);
    surface.Cls();
    QCOMPARE(rowsOf(surface.Image()), QStringList({"rg", "by"}));
    QCOMPARE(surface.CurrentX(), 0.0);
}

void TestSurface::commitMakesDrawingPersistent() {
    Surface surface(QStringLiteral("s"), QSize(2, 1));
    surface.Line(QPointF(1, 0), QPointF(1, 0), Red, BoxStyle::Filled);
    QVERIFY(surface.Picture().isEmpty());
    surface.commit();
    surface.Cls();
    QCOMPARE(rowsOf(surface.Image()), QStringList({".r"}));
    surface.setPicture(Raster());
    QCOMPARE(rowsOf(surface.Image()), QStringList({".."}));
}

void TestSurface::committedEditIsWrittenInPlace() {
    Surface surface(QStringLiteral("picDisp"), QSize(300, 300));
    surface.editCommitted(QRect(0, 0, 1, 1), [](Raster& image) { image.setPixel(0, 0, Red); });
    const auto memory = [&surface] {
        const uchar* bits = nullptr;
        surface.Image().readTiles(QRect(0, 0, 1, 1),
                                  [&](const QImage& tile, const QRect&) { bits = tile.constBits(); });
        return bits;
    };
    const uchar* before = memory();
    QSignalSpy changed(&surface, &Surface::changed);
    surface.editCommitted(QRect(1, 0, 400, 1), [](Raster& image) { image.setPixel(1, 0, Blue); });
    QCOMPARE(memory(), before);
    QCOMPARE(surface.Picture(), surface.Image());
    surface.Cls();
    QCOMPARE(surface.Point(0, 0), Red);
    QCOMPARE(surface.Point(1, 0), Blue);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QRegion>(), QRegion(1, 0, 299, 1));

    const Raster kept = surface.Picture(); // somebody else's copy stays what it was
    surface.editCommitted(QRect(0, 0, 1, 1), [](Raster& image) { image.setPixel(0, 0, Blue); });
    QCOMPARE(kept.pixel(0, 0), Red);
    QCOMPARE(surface.Point(0, 0), Blue);
}

void TestSurface::failedEditLeavesAPicture() {
    Surface surface(QStringLiteral("picDisp"), QSize(20, 10));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, surface.editCommitted(QRect(0, 0, 20, 10), [](Raster& image) {
        image.setPixel(3, 3, Red);
        throw RuntimeError(error::OutOfMemory);
    }));
    QCOMPARE(surface.Picture().size(), QSize(20, 10));
    QCOMPARE(surface.Picture(), surface.Image());
}

void TestSurface::pictureIsLaidFromTheCorner() {
    Surface surface(QStringLiteral("s"), QSize(3, 2));
    surface.setBackColor(Blue);
    surface.setPicture(grid({"r"}));
    QCOMPARE(rowsOf(surface.Image()), QStringList({"rbb", "bbb"}));
    surface.setPicture(grid({"rrrr", "rrrr", "rrrr"}));
    QCOMPARE(rowsOf(surface.Image()), QStringList({"rrr", "rrr"}));
    QCOMPARE(surface.innerSize(), QSize(3, 2));
}

void TestSurface::largerShowsBackgroundSmallerCuts() {
    Surface surface(QStringLiteral("s"));
    painted(surface, {"rg", "by"});
    surface.setBackColor(Black);
    surface.setWidth(3);
    surface.setHeight(3);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"rg#", "by#", "###"}));
    surface.setWidth(1);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"r", "b", "#"}));
}

void TestSurface::drawingSurvivesAChangeOfSize() {
    Surface surface(QStringLiteral("s"), QSize(3, 1));
    surface.Line(QPointF(0, 0), QPointF(0, 0), Red, BoxStyle::Filled);
    surface.Line(QPointF(2, 0), QPointF(2, 0), Blue, BoxStyle::Filled);
    surface.setWidth(2);
    surface.setHeight(2);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"r.", ".."}));
    surface.setWidth(4);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"r...", "...."}));
    surface.Cls();
    QCOMPARE(rowsOf(surface.Image()), QStringList({"....", "...."}));
}

void TestSurface::autoSizeTakesThePicturesSize() {
    Surface surface(QStringLiteral("s"), QSize(9, 9));
    surface.setAutoSize(true);
    QSignalSpy resized(&surface, &Surface::innerSizeChanged);
    surface.setPicture(grid({"rg"}));
    QCOMPARE(surface.innerSize(), QSize(2, 1));
    QCOMPARE(resized.size(), 1);
    surface.setPicture(Raster());
    QCOMPARE(surface.innerSize(), QSize(2, 1));
}

void TestSurface::borderStaysOutside() {
    Surface surface(QStringLiteral("s"), QSize(10, 20));
    surface.setBorder(2);
    QCOMPARE(surface.Width(), 14);
    QCOMPARE(surface.Height(), 24);
    surface.setWidth(30);
    QCOMPARE(surface.ScaleWidth(), 26.0);
    surface.setWidth(1);
    QCOMPARE(surface.ScaleWidth(), 0.0);
}

void TestSurface::negativeSizesAreRefused() {
    Surface surface(QStringLiteral("s"), QSize(10, 20));
    for (const double bad : {-1.0, std::numeric_limits<double>::quiet_NaN()}) {
        try {
            surface.setWidth(bad);
            QFAIL("accepted");
        } catch (const RuntimeError& caught) {
            QCOMPARE(caught.number(), 380);
        }
    }
    QVERIFY_THROWS_EXCEPTION(RuntimeError, surface.setHeight(1e9));
    QCOMPARE(surface.innerSize(), QSize(10, 20));
}

void TestSurface::changedBackgroundShowsOnlyBesideThePicture() {
    Surface surface(QStringLiteral("s"), QSize(3, 1));
    surface.setPicture(grid({"r"}));
    surface.Line(QPointF(2, 0), QPointF(2, 0), Black, BoxStyle::Filled);
    surface.setBackColor(Blue);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"rbb"}));
}

void TestSurface::pointOutsideIsInvalid() {
    Surface surface(QStringLiteral("s"), QSize(2, 2));
    QCOMPARE(surface.Point(1, 1), White);
    QCOMPARE(surface.Point(2, 1), InvalidColour);
    QCOMPARE(surface.Point(-1, 0), InvalidColour);
    QCOMPARE(surface.Point(1e30, 0), InvalidColour);
    QCOMPARE(surface.Point(std::numeric_limits<double>::quiet_NaN(), -5), InvalidColour);
}

void TestSurface::twipsAreCutToPixels() {
    Surface surface(QStringLiteral("s"));
    painted(surface, {"rgb"});
    surface.setScaleMode(ScaleMode::Twips);
    QCOMPARE(surface.ScaleWidth(), 45.0);
    QCOMPARE(surface.ScaleHeight(), 15.0);
    QCOMPARE(surface.Point(14.9, 0), Red);
    QCOMPARE(surface.Point(15, 14), rgb(0, 255, 0));
    QCOMPARE(surface.Point(-1, 0), InvalidColour);
    QCOMPARE(surface.Width(), 3);
}

void TestSurface::pixelsAreRoundedHalfToEven() {
    Surface surface(QStringLiteral("s"));
    painted(surface, {"rgb"});
    QCOMPARE(surface.Point(0.5, 0), Red);
    QCOMPARE(surface.Point(1.5, 0), Blue);
    QCOMPARE(surface.Point(-0.4, 0), Red);
}

void TestSurface::filledBoxIncludesBothCorners() {
    Surface surface(QStringLiteral("s"), QSize(4, 3));
    surface.Line(QPointF(2, 2), QPointF(1, 1), Red, BoxStyle::Filled);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"....", ".rr.", ".rr."}));
    surface.Line(QPointF(-5, -5), QPointF(0, 9), Blue, BoxStyle::Filled);
    QCOMPARE(rowsOf(surface.Image()), QStringList({"b...", "brr.", "brr."}));
}

void TestSurface::dottedFrameTwiceIsGone_data() {
    QTest::addColumn<QPoint>("a");
    QTest::addColumn<QPoint>("b");
    QTest::newRow("box") << QPoint(2, 3) << QPoint(20, 15);
    QTest::newRow("corners swapped") << QPoint(20, 15) << QPoint(2, 3);
    QTest::newRow("one pixel wide") << QPoint(5, 2) << QPoint(5, 17);
    QTest::newRow("one pixel high") << QPoint(2, 5) << QPoint(17, 5);
    QTest::newRow("two pixels wide") << QPoint(5, 2) << QPoint(6, 17);
    QTest::newRow("two by two") << QPoint(5, 5) << QPoint(6, 6);
    QTest::newRow("a point") << QPoint(7, 7) << QPoint(7, 7);
    QTest::newRow("beyond the edges") << QPoint(-4, -3) << QPoint(40, 50);
    QTest::newRow("one edge visible") << QPoint(10, -3) << QPoint(50, 50);
    QTest::newRow("outside") << QPoint(100, 100) << QPoint(110, 110);
}

void TestSurface::dottedFrameTwiceIsGone() {
    QFETCH(QPoint, a);
    QFETCH(QPoint, b);
    const Raster before = noise(QSize(30, 24));
    Surface surface(QStringLiteral("s"), before.size());
    surface.setPicture(before);
    surface.setDrawMode(DrawMode::Invert);
    surface.setDrawStyle(DrawStyle::Dotted);
    surface.Line(a, b, Black, BoxStyle::Outline);
    QCOMPARE(surface.Image(), slowDottedFrame(surface.Picture(), a, b));
    if (before.rect().contains(a))
        QVERIFY(!(surface.Image() == surface.Picture()));
    surface.Line(a, b, Black, BoxStyle::Outline);
    QCOMPARE(surface.Image(), surface.Picture());
}

void TestSurface::outlineIsShownWithoutCopyingTiles() {
    const QRect all(0, 0, 600, 520); // three tiles by three, the last ones cut
    const QPoint a(200, -5), b(570, 300);
    Surface surface(QStringLiteral("s"), all.size());
    surface.setPicture(noise(all.size()));
    surface.setDrawMode(DrawMode::Invert);
    surface.setDrawStyle(DrawStyle::Dotted);
    surface.Line(a, b, Black, BoxStyle::Outline);

    int same = 0; // tiles that are read where Picture has them
    surface.readShown(all, [&](const QImage& pixels, const QRect&, QPoint at) {
        surface.Picture().readTiles(QRect(at, QSize(1, 1)), [&](const QImage& tile, const QRect&) {
            same += tile.constBits() == pixels.constBits() ? 1 : 0;
        });
    });
    QCOMPARE(same, 9);
    const Raster wanted = slowDottedFrame(surface.Picture(), a, b);
    for (const QRect& area : {all, QRect(190, 0, 30, 40), QRect(560, 290, 40, 40), QRect(300, 100, 9, 9)})
        QCOMPARE(shown(surface, area), partOf(wanted, area));
    QCOMPARE(surface.Image(), wanted);
    QCOMPARE(shown(surface, all), wanted);
    surface.Cls();
    QCOMPARE(shown(surface, all), surface.Picture());
}

void TestSurface::outlineSurvivesWhatComesAfterIt_data() {
    using Change = std::function<void(Surface&)>;
    QTest::addColumn<Change>("change");
    QTest::newRow("committing") << Change([](Surface& s) { s.commit(); });
    QTest::newRow("reading a pixel") << Change(
        [](Surface& s) { QVERIFY(s.Point(4, 3) != s.Picture().pixel(4, 3)); });
    QTest::newRow("a filled box") << Change(
        [](Surface& s) { s.Line(QPointF(5, 3), QPointF(9, 9), Red, BoxStyle::Filled); });
    QTest::newRow("another outline") << Change(
        [](Surface& s) { s.Line(QPointF(3, 3), QPointF(9, 20), Red, BoxStyle::Outline); });
    QTest::newRow("text") << Change([](Surface& s) { s.Print(QStringLiteral("HH")); });
    QTest::newRow("a copy onto itself")
        << Change([](Surface& s) { s.copyFrom(s, QRect(2, 2, 8, 4), QPoint(12, 8)); });
    QTest::newRow("an edit") << Change([](Surface& s) {
        s.editImage(QRect(4, 3, 1, 1), [](Raster& image, const QRect&) { image.setPixel(4, 3, Blue); });
    });
    QTest::newRow("a committed edit") << Change([](Surface& s) {
        s.editCommitted(QRect(4, 3, 1, 1), [](Raster& image) { image.setPixel(4, 3, Blue); });
    });
    QTest::newRow("a copy over it") << Change([](Surface& s) {
        const Surface white(QStringLiteral("w"), QSize(9, 9));
        s.copyFrom(white, QRect(0, 0, 9, 9), QPoint(0, 0));
    });
    QTest::newRow("another picture") << Change([](Surface& s) { s.setPicture(noise(QSize(30, 30))); });
    QTest::newRow("another background") << Change([](Surface& s) { s.setBackColor(Red); });
    QTest::newRow("another size") << Change([](Surface& s) { s.setInnerSize(QSize(40, 12)); });
    QTest::newRow("copied elsewhere") << Change([](Surface& s) {
        Surface other(QStringLiteral("o"), s.innerSize());
        other.copyFrom(s, QRect(QPoint(0, 0), s.innerSize()), QPoint(0, 0));
        s.Cls();
        s.copyFrom(other, QRect(QPoint(0, 0), s.innerSize()), QPoint(0, 0));
    });
}

void TestSurface::outlineSurvivesWhatComesAfterIt() {
    QFETCH(std::function<void(Surface&)>, change);
    Surface late(QStringLiteral("late"), QSize(30, 24));
    late.setPicture(noise(late.innerSize()));
    Surface atOnce(QStringLiteral("at once"), late.innerSize());
    atOnce.setPicture(late.Picture());
    for (Surface* surface : {&late, &atOnce}) {
        surface->setDrawMode(DrawMode::Invert);
        surface->Line(QPointF(4, 3), QPointF(20, 18), Black, BoxStyle::Outline);
        surface->setDrawMode(DrawMode::CopyPen);
        if (surface == &atOnce)
            QVERIFY(!(surface->Image() == surface->Picture())); // reading it draws the outline into it
        change(*surface);
    }
    QCOMPARE(shown(late, late.Image().rect()), atOnce.Image());
    QCOMPARE(late.Image(), atOnce.Image());
    QCOMPARE(late.Picture(), atOnce.Picture());
    late.Cls();
    atOnce.Cls();
    QCOMPARE(late.Image(), atOnce.Image());
}

void TestSurface::copyFromClips() {
    Surface source(QStringLiteral("a"));
    painted(source, {"rg", "by"});
    Surface target(QStringLiteral("b"), QSize(3, 3));
    target.copyFrom(source, QRect(0, 0, 9, 9), QPoint(2, 1));
    QCOMPARE(rowsOf(target.Image()), QStringList({"...", "..r", "..b"}));
    target.copyFrom(source, QRect(0, 0, 2, 2), QPoint(-1, -1));
    QCOMPARE(rowsOf(target.Image()), QStringList({"y..", "..r", "..b"}));
    QVERIFY(target.Picture().isEmpty());
}

void TestSurface::snapshotSharesMemory() {
    Surface one(QStringLiteral("a"), QSize(1000, 1000));
    one.Line(QPointF(0, 0), QPointF(999, 999), Red, BoxStyle::Filled);
    one.commit();
    Surface other(QStringLiteral("b"), QSize(1000, 1000));
    other.copyFrom(one, QRect(0, 0, 1000, 1000), QPoint(0, 0));
    other.commit();
    one.Line(QPointF(300, 300), QPointF(310, 310), Blue, BoxStyle::Filled);
    int shared = 0;
    for (int y = 0; y < 1000; y += Raster::TileSide)
        for (int x = 0; x < 1000; x += Raster::TileSide)
            shared += one.Image().sharesTile(other.Picture(), x, y) ? 1 : 0;
    QCOMPARE(shared, 15); // of 16: all but the one drawn into
}

void TestSurface::clsTouchesOnlyWhatWasDrawn() {
    Surface surface(QStringLiteral("s"), QSize(1000, 1000));
    surface.Line(QPointF(10, 10), QPointF(20, 20), Blue, BoxStyle::Filled);
    QSignalSpy changed(&surface, &Surface::changed);
    surface.Cls();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().first().value<QRegion>(), QRegion(10, 10, 11, 11));
    surface.Cls();
    QCOMPARE(changed.size(), 1);
}

void TestSurface::announcesWhatChanged() {
    Surface surface(QStringLiteral("s"), QSize(100, 100));
    QSignalSpy changed(&surface, &Surface::changed);
    surface.setDrawMode(DrawMode::Invert);
    surface.Line(QPointF(10, 10), QPointF(30, 20), Black, BoxStyle::Outline);
    const QRegion frame = QRegion(10, 10, 21, 11).subtracted(QRegion(11, 11, 19, 9));
    QCOMPARE(changed.takeFirst().first().value<QRegion>(), frame);
    surface.commit();
    QCOMPARE(changed.size(), 0);
}

void TestSurface::printUsesForeColourAndPosition() {
    Surface surface(QStringLiteral("s"), QSize(200, 80));
    surface.setFont(textFont(QStringLiteral("Arial"), 24, false, false));
    surface.setForeColor(Red);
    surface.setCurrentX(20);
    surface.setCurrentY(10);
    surface.Print(QStringLiteral("HHH"));
    const double height = surface.TextHeight(QStringLiteral("HHH"));
    const int width = static_cast<int>(surface.TextWidth(QStringLiteral("HHH")));
    QCOMPARE(surface.CurrentX(), 0.0);
    QCOMPARE(surface.CurrentY(), 10 + height);
    int left = 1000, right = -1, top = 1000;
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 200; ++x)
            if (surface.Point(x, y) == Red) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
            }
    QVERIFY2(left >= 20 && left < 26, qPrintable(QString::number(left)));
    QVERIFY(right <= 20 + width && right > width);
    QVERIFY(top >= 10 && top < 10 + height / 2);
}

void TestSurface::printInTwips() {
    Surface pixels(QStringLiteral("a"), QSize(100, 60));
    Surface twips(QStringLiteral("b"), QSize(100, 60));
    for (Surface* surface : {&pixels, &twips})
        surface->setFont(textFont(QStringLiteral("Arial"), 20, true, false));
    pixels.setCurrentX(2);
    pixels.setCurrentY(1);
    pixels.Print(QStringLiteral("Aé"));
    twips.setScaleMode(ScaleMode::Twips);
    twips.setCurrentX(44); // the last twip of pixel 2
    twips.setCurrentY(15);
    twips.Print(QStringLiteral("Aé"));
    QCOMPARE(twips.Image(), pixels.Image());
    QCOMPARE(twips.TextWidth(QStringLiteral("Aé")), pixels.TextWidth(QStringLiteral("Aé")) * 15);
}

void TestSurface::printLeavesTwoColours() {
    Surface surface(QStringLiteral("s"), QSize(400, 150));
    for (const bool italic : {false, true}) {
        surface.setFont(textFont(QStringLiteral("Arial"), 60, italic, italic));
        surface.setForeColor(rgb(0, 64, 128));
        surface.Print(QStringLiteral("Été g@"));
    }
    QSet<Colour> colours;
    for (int y = 0; y < 150; ++y)
        for (int x = 0; x < 400; ++x)
            colours.insert(surface.Point(x, y));
    QCOMPARE(colours, QSet<Colour>({White, rgb(0, 64, 128)}));
}

void TestSurface::printOutsideIsIgnored() {
    Surface surface(QStringLiteral("s"), QSize(50, 20));
    surface.setFont(textFont(QStringLiteral("Arial"), 20, false, false));
    const QString longText(2000, QLatin1Char('M'));
    surface.setCurrentX(-500);
    surface.Print(longText);
    bool ink = false;
    for (int x = 0; x < 50; ++x)
        ink = ink || surface.Point(x, 10) == Black;
    QVERIFY(ink);
    surface.Cls();
    surface.setCurrentX(4000);
    surface.Print(QStringLiteral("M"));
    surface.setCurrentY(-4000);
    surface.Print(QStringLiteral("M"));
    QCOMPARE(surface.Image(), Raster(QSize(50, 20), White));
    Surface empty(QStringLiteral("e"));
    empty.Print(QStringLiteral("M"));
    QVERIFY(empty.Image().isEmpty());
}

void TestSurface::contentsArePutBack() {
    Surface surface(QStringLiteral("s"), QSize(300, 40));
    surface.setPicture(Raster(QSize(300, 40), rgb(1, 2, 3)));
    surface.Line(QPointF(5, 5), QPointF(20, 20), Black, BoxStyle::Filled);
    surface.Line(QPointF(2, 2), QPointF(290, 30), White, BoxStyle::Outline); // still beside the image
    const Surface::Contents before = surface.contents();
    const Raster picture = surface.Picture();
    const Raster image = surface.Image();
    surface.setScaleMode(ScaleMode::Twips);
    surface.setInnerSize(QSize(20, 500));
    surface.setPicture(Raster());
    QSignalSpy resized(&surface, &Surface::innerSizeChanged);
    QSignalSpy changed(&surface, &Surface::changed);
    surface.putBack(before);
    QCOMPARE(resized.count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(surface.ScaleMode(), ScaleMode::Pixels);
    QCOMPARE(surface.Picture(), picture);
    QCOMPARE(surface.Image(), image);
    surface.Cls(); // what is only drawn is still known to be that
    QCOMPARE(surface.Image(), picture);
}

void TestSurface::changeWithoutMemoryLeavesAllAsItWas() {
    Surface surface(QStringLiteral("s"), QSize(30, 20));
    surface.setPicture(Raster(QSize(30, 20), rgb(1, 2, 3)));
    surface.Line(QPointF(5, 5), QPointF(20, 10), Black, BoxStyle::Outline);
    const QSize tooLarge(Raster::MaxSide + 1, 1);
    QVERIFY(!skipOnError([&] { surface.setInnerSize(tooLarge); }));
    QCOMPARE(surface.innerSize(), QSize(30, 20));
    QCOMPARE(surface.Point(5, 5), Black);
    QCOMPARE(surface.Point(0, 0), rgb(1, 2, 3));
}

void TestSurface::textIsRenderedOncePerText() {
    TextMaskCache cache;
    const QFont font = textFont(QStringLiteral("Arial"), 30, false, false);
    const QRect surface(0, 0, 200, 60);
    for (int offset = 0; offset < 10; ++offset)
        cache.mask(font, QStringLiteral("Texte"), surface.translated(-offset, -offset));
    QCOMPARE(cache.misses(), 1);
    cache.mask(font, QStringLiteral("Autre"), surface);
    QCOMPARE(cache.misses(), 2);
    cache.mask(font, QStringLiteral("Autre"), surface.translated(-5000, 0));
    QCOMPARE(cache.misses(), 2);
}

void TestSurface::textSizeDependsOn96DotsPerInch() {
    QCOMPARE(textFont(QStringLiteral("Arial"), 72, false, false).pixelSize(), 96);
    QCOMPARE(textFont(QStringLiteral("Arial"), 24, false, false).pixelSize(), 32);
    QCOMPARE(textFont(QStringLiteral("Arial"), 0, false, false).pixelSize(), 1);
}

OVRANO_TEST(TestSurface)
#include "tst_surface.moc"
