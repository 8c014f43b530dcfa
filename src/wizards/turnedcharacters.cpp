#include "wizards/turnedcharacters.h"

#include "platform/coverage.h"
#include "platform/textmask.h"
#include "wizards/areamask.h"

#include <QFontMetrics>
#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTextLayout>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

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

void TurnedCharacters::print(Surface& target, const QString& character, std::int32_t escapement,
                             QPoint corner) {
    const Character& drawn = known(character);
    const QPoint reach(drawn.reach, drawn.reach);
    if (drawn.ink.isEmpty() || !QRect(corner - reach, corner + reach).intersects(target.Image().rect()))
        return;
    const int angle = (escapement % FullTurn + FullTurn) % FullTurn;
    if (!drawn.byOutline) {
        paint(target, drawn, angle / 10.0, corner);
        return;
    }
    const Mask& turnedMask = mask(drawn, angle);
    blendCoverage(target, turnedMask.coverage, corner + turnedMask.at, target.ForeColor());
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
    const int reach = reachOf(ink) + 1;
    return {text, path.toSubpathPolygons(), ink, reach, !pictured && reach <= LargestReach};
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
    const QRect window = character.ink.toAlignedRect();
    QImage mask(window.size(), QImage::Format_Grayscale8);
    mask.fill(0);
    QPainter painter(&mask);
    painter.setPen(Qt::white);
    painter.setFont(font());
    painter.drawText(QPoint(0, m_ascent) - window.topLeft(), character.text);
    return {mask, window.topLeft()};
}

TurnedCharacters::Mask TurnedCharacters::turned(const Character& character, double degrees) {
    const QTransform turn = QTransform().rotate(-degrees);
    const QRect window = turn.mapRect(character.ink).toAlignedRect();
    AreaMask mask(window);
    for (const QPolygonF& contour : character.outline) {
        const QPolygonF moved = turn.map(contour);
        for (qsizetype i = 0; i < moved.size(); ++i)
            mask.addEdge(moved.at(i), moved.at(i + 1 < moved.size() ? i + 1 : 0));
    }
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
    return mask;
}

void TurnedCharacters::paint(Surface& target, const Character& character, double degrees,
                             QPoint corner) const {
    const QTransform place = QTransform::fromTranslate(corner.x(), corner.y()).rotate(-degrees);
    const QRect area = place.mapRect(character.ink).toAlignedRect();
    target.editImage(area, [&](Raster& image, const QRect& inside) {
        image.writeTiles(inside, [&](QImage& tile, const QRect& part) {
            QPainter painter(&tile);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setTransform(place *
                                 QTransform::fromTranslate(-(part.left() - part.left() % Raster::TileSide),
                                                           -(part.top() - part.top() % Raster::TileSide)));
            painter.setPen(QColor(toPixel(target.ForeColor())));
            painter.setFont(font());
            painter.drawText(QPoint(0, m_ascent), character.text);
        });
    });
}

} // namespace ovrano
