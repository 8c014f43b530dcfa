#include "support/comparison.h"
#include "text/extrusion.h"
#include "text/topics.h"

#include <QFontMetrics>
#include <QPainter>

#include <memory>
#include <optional>

namespace ovrano::bench {

namespace {

constexpr double Points = 72;
constexpr int Margin = 10; // pixels beyond the text's cell
const QString Text = QStringLiteral("Votre texte");

struct Stamp {
    explicit Stamp(int depth)
        : layers(extrusionLayers(rgb(0, 64, 128), extrusionDepth(static_cast<std::int16_t>(depth)),
                                 Direction::UpperLeft)) {}

    /// An empty surface that has never printed this text.
    void startAnew() {
        surface.emplace(QStringLiteral("stamp"), size);
        surface->setFont(font);
        surface->setScaleMode(ScaleMode::Twips);
        page = QImage(size, QImage::Format_RGB32);
        page.fill(Qt::white);
    }

    std::vector<TextLayer> layers;
    QFont font = textFont(QStringLiteral("Liberation Sans"), Points, false, false);
    QSize size = textExtent(font, Text) + QSize(Margin, Margin);
    std::optional<Surface> surface;
    QImage page;
};

void everyLayerByPainter(Stamp& stamp) {
    QPainter painter(&stamp.page);
    painter.setFont(stamp.font);
    const int ascent = QFontMetrics(stamp.font).ascent();
    for (const TextLayer& layer : stamp.layers) {
        painter.setPen(QColor(toPixel(layer.colour)));
        painter.drawText(QPoint(layer.x / 15, layer.y / 15 + ascent), Text);
    }
}

void everyLayer(Stamp& stamp) {
    for (const TextLayer& layer : stamp.layers)
        PrintTextLayer(*stamp.surface, layer.x, layer.y, layer.colour, Text);
}

} // namespace

void extrusions() {
    for (const int depth : {4, 9})
        compare("extrusion, 72 points, depth " + std::to_string(depth), [=](Comparison& ways) {
            const auto stamp = std::make_shared<Stamp>(depth);
            const auto anew = [=] { stamp->startAnew(); };
            ways.ours(timed(anew, [=] { printExtrusion(*stamp->surface, stamp->layers, Text); }));
            ways.against("every layer, by the toolkit's painter",
                         timed(anew, [=] { everyLayerByPainter(*stamp); }), 0.1);
            ways.against("every layer, by our own printing", timed(anew, [=] { everyLayer(*stamp); }));
        });
}

} // namespace ovrano::bench
