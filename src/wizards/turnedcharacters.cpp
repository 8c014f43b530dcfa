#include "wizards/turnedcharacters.h"

#include "platform/coverage.h"
#include "platform/runtimeerror.h"
#include "platform/textmask.h"
#include "wizards/areamask.h"

#include <QFontMetrics>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace ovrano {

namespace {

constexpr int FullTurn = 3600; // tenths of a degree
constexpr int QuarterTurn = 900;
/// Characters with ink farther from their corner than this many pixels are not masked.
constexpr int LargestReach = 200;
/// More different characters than this are not kept.
constexpr int MostKnown = 2000;
/// Far more than the largest mask, so that one that was just made is not dropped at once.
constexpr qsizetype MostMaskBytes = 8 << 20;

int pixelSizeOf(const QFont& font) {
    return font.pixelSize() > 0 ? font.pixelSize() : textPixelSize(font.pointSizeF());
}

QFont smoothFont(const QString& family, int pixelSize) {
    return smoothTextFont(family, pixelSize * 72 / 96.0);
}

bool hasColours(const QRawFont& font) {
    constexpr std::array Tables = {"CBDT", "COLR", "sbix", "SVG "};
    return std::any_of(Tables.begin(), Tables.end(),
                       [&](const char* table) { return !font.fontTable(table).isEmpty(); });
}

/// Whether a text is shown by pictures in colours of their own, as emoji are.
bool isPictured(const QFont& font, const QString& text) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return std::any_of(runs.begin(), runs.end(),
                       [](const QGlyphRun& run) { return hasColours(run.rawFont()); });
}

/// The distance from the origin to the farthest corner of a box, rounded up.
int reachOf(const QRectF& box) {
    const double x = std::max(std::abs(box.left()), std::abs(box.right()));
    const double y = std::max(std::abs(box.top()), std::abs(box.bottom()));
    return static_cast<int>(std::ceil(std::hypot(x, y)));
}

} // namespace

TurnedCharacters::TurnedCharacters(const QFont& font)
    : m_family(font.family())
    , m_pixelSize(pixelSizeOf(font))
    , m_ascent(QFontMetrics(smoothFont(m_family, m_pixelSize)).ascent())
    , m_masks(MostMaskBytes) {}

bool TurnedCharacters::areOf(const QFont& font) const {
    return m_family == font.family() && m_pixelSize == pixelSizeOf(font);
}

void TurnedCharacters::print(Surface& target, const std::vector<TurnedCharacter>& characters) {
    std::vector<Painting> paintings;
    for (const TurnedCharacter& character : characters) {
        const Character& drawn = known(character.text);
        const int angle = (character.escapement % FullTurn + FullTurn) % FullTurn;
        const QPoint corner = character.corner;
        const QTransform place = QTransform::fromTranslate(corner.x(), corner.y()).rotate(-angle / 10.0);
        const QRect area = place.mapRect(drawn.ink).toAlignedRect() & target.Image().rect();
        if (area.isEmpty())
            continue;
        if (drawn.masked) {
            paintAll(target, paintings);
            const Mask& turnedMask = mask(drawn, angle);
            blendCoverage(target, turnedMask.coverage, corner + turnedMask.at, target.ForeColor());
        } else {
            paintings.push_back({drawn, place, area});
        }
    }
    paintAll(target, paintings);
}

QFont TurnedCharacters::font() const {
    return smoothFont(m_family, m_pixelSize);
}

const TurnedCharacters::Character& TurnedCharacters::known(const QString& text) {
    auto found = m_known.constFind(text);
    if (found == m_known.constEnd()) {
        if (m_known.size() >= MostKnown)
            m_known.clear();
        found = m_known.insert(text, measured(text));
    }
    return *found;
}

TurnedCharacters::Character TurnedCharacters::measured(const QString& text) const {
    const QFont drawnWith = font();
    QPainterPath path;
    path.addText(0, m_ascent, drawnWith, text);
    // Fitting the upright letter to whole pixels moves its ink by less than one of them.
    QRectF ink = path.boundingRect();
    ink = ink.isEmpty() ? QRectF() : ink.adjusted(-1, -1, 1, 1);
    const bool pictured = isPictured(drawnWith, text);
    if (pictured) {
        const QFontMetrics metrics(drawnWith);
        const int height = metrics.height();
        ink =
            QRectF(0, 0, metrics.horizontalAdvance(text), height).adjusted(-height, -height, height, height);
    }
    path.setFillRule(Qt::WindingFill);
    return {text, path, path.toSubpathPolygons(), ink, pictured, !pictured && reachOf(ink) < LargestReach};
}

const TurnedCharacters::Mask& TurnedCharacters::mask(const Character& character, int angle) {
    const std::pair key(character.text, angle);
    if (const Mask* kept = m_masks.object(key))
        return *kept;
    const int rest = angle % QuarterTurn;
    auto made = std::make_unique<Mask>(
        quarterTurned(rest == 0 ? upright(character) : turned(character, rest / 10.0), angle / QuarterTurn));
    const Mask& given = *made;
    const qsizetype bytes = made->coverage.sizeInBytes();
    m_masks.insert(key, made.release(), bytes);
    return given;
}

TurnedCharacters::Mask TurnedCharacters::upright(const Character& character) const {
    const SmoothTextMask mask(font(), character.text, character.ink.toAlignedRect());
    return {mask.coverage(), mask.ink().topLeft()};
}

TurnedCharacters::Mask TurnedCharacters::turned(const Character& character, double degrees) {
    const QTransform turn = QTransform().rotate(-degrees);
    QList<QPolygonF> contours;
    QRectF ink;
    for (const QPolygonF& contour : character.contours) {
        contours.append(turn.map(contour));
        ink |= contours.constLast().boundingRect();
    }
    // Where the ink is, rather than all that its upright box turns into.
    const QRect window = ink.toAlignedRect();
    AreaMask mask(window);
    for (const QPolygonF& contour : std::as_const(contours))
        for (qsizetype i = 0; i < contour.size(); ++i)
            mask.addEdge(contour.at(i), contour.at(i + 1 < contour.size() ? i + 1 : 0));
    return {mask.coverage(), window.topLeft()};
}

TurnedCharacters::Mask TurnedCharacters::quarterTurned(Mask mask, int quarters) {
    const QSize size = mask.coverage.size();
    const QPoint at = mask.at;
    switch (quarters) {
    case 1:
        mask.at = QPoint(at.y(), -at.x() - size.width());
        break;
    case 2:
        mask.at = QPoint(-at.x() - size.width(), -at.y() - size.height());
        break;
    case 3:
        mask.at = QPoint(-at.y() - size.height(), at.x());
        break;
    default:
        return mask;
    }
    mask.coverage = mask.coverage.transformed(QTransform().rotate(-90.0 * quarters));
    if (mask.coverage.isNull() && !size.isEmpty())
        throw RuntimeError(error::OutOfMemory);
    return mask;
}

void TurnedCharacters::paintAll(Surface& target, std::vector<Painting>& paintings) const {
    if (paintings.empty())
        return;
    QRect area;
    for (const Painting& painting : paintings)
        area |= painting.area;
    QImage window = target.Image().toImage(area);
    if (window.isNull())
        throw RuntimeError(error::OutOfMemory);
    QPainter painter(&window);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(toPixel(target.ForeColor())));
    painter.setFont(font());
    for (Painting& painting : paintings) {
        painting.place *= QTransform::fromTranslate(-area.left(), -area.top());
        paint(painter, painting);
    }
    painter.end();
    paintings.clear();
    target.editImage(area, [&](Raster& image, const QRect& inside) {
        image.copyFrom(Raster::fromImage(window), window.rect(), inside.topLeft());
    });
}

void TurnedCharacters::paint(QPainter& painter, const Painting& painting) const {
    painter.setTransform(painting.place);
    if (painting.character.pictured)
        painter.drawText(QPoint(0, m_ascent), painting.character.text);
    else
        painter.fillPath(painting.character.outline, painter.pen().color());
}

} // namespace ovrano
