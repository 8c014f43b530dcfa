#include "text/extrusion.h"

#include "platform/numbers.h"
#include "platform/screen.h"

#include <QPointF>

#include <algorithm>
#include <cmath>

namespace ovrano {

namespace {

/// Twips between the surface's edges and the nearest layer.
constexpr int Margin = 2;

/// Where the layers start on one axis and which way they go.
struct Course {
    int start;
    int step;

    std::int16_t at(int layer) const { return toInteger16(start + step * layer); }
};

Course courseFrom(bool farEnd, int depth) {
    return farEnd ? Course{depth + Margin, -1} : Course{Margin, 1};
}

bool startsRight(Direction direction) {
    return direction == Direction::UpperRight || direction == Direction::LowerLeft;
}

bool startsBelow(Direction direction) {
    return direction == Direction::LowerLeft || direction == Direction::LowerRight;
}

/// A channel from which `depth` steps stay within 255.
int darkened(int channel, int depth) {
    return std::min(channel, 255 - depth);
}

/// The pixel that holds a layer's corner, as surfaces convert their twips.
QPointF pixelOf(const TextLayer& layer) {
    return {std::floor(layer.x / double{TwipsPerPixelX}), std::floor(layer.y / double{TwipsPerPixelY})};
}

} // namespace

void PrintTextLayer(Surface& surface, float x, float y, Colour colour, const QString& text) {
    surface.setCurrentX(static_cast<double>(x));
    surface.setCurrentY(static_cast<double>(y));
    surface.setForeColor(std::min(colour, BrightestLayer));
    surface.Print(text);
}

std::int16_t extrusionDepth(std::int16_t pixels) {
    return toInteger16(pixels * TwipsPerPixelX);
}

std::vector<TextLayer> extrusionLayers(Colour colour, std::int16_t depth, Direction direction) {
    const int red = darkened(redOf(colour), depth);
    const int green = darkened(greenOf(colour), depth);
    const int blue = darkened(blueOf(colour), depth);
    const Course x = courseFrom(startsRight(direction), depth);
    const Course y = courseFrom(startsBelow(direction), depth);
    std::vector<TextLayer> layers;
    Colour layerColour = colour;
    for (int i = 0; i <= depth; ++i) {
        layers.push_back({x.at(i), y.at(i), layerColour});
        layerColour = rgb(red + i, green + i, blue + i);
    }
    return layers;
}

std::vector<TextLayer> visibleLayers(const std::vector<TextLayer>& layers) {
    std::vector<TextLayer> visible;
    std::for_each(layers.rbegin(), layers.rend(), [&](const TextLayer& layer) {
        const auto overprintsIt = [&](const TextLayer& later) { return pixelOf(layer) == pixelOf(later); };
        if (std::none_of(visible.begin(), visible.end(), overprintsIt))
            visible.push_back(layer);
    });
    std::reverse(visible.begin(), visible.end());
    return visible;
}

void printExtrusion(Surface& surface, const std::vector<TextLayer>& layers, const QString& text) {
    for (const TextLayer& layer : visibleLayers(layers))
        PrintTextLayer(surface, layer.x, layer.y, layer.colour, text);
}

} // namespace ovrano
