#pragma once

#include "platform/screen.h"
#include "support/answeringdialogs.h"
#include "text/extrusion.h"
#include "text/onecolourpanel.h"

#include <QSignalSpy>

#include <algorithm>

namespace ovrano {

/// Keeps the pointer that the program showed when a box came up.
class PointerWatchingDialogs : public AnsweringDialogs {
public:
    Answer messageBox(const MessageBox& box) override {
        pointers.append(screenMousePointer());
        return AnsweringDialogs::messageBox(box);
    }
    QList<MousePointer> pointers;
};

/// The tools of a window around a work picture.
struct OneColourBench {
    PointerWatchingDialogs dialogs;
    WorkPicture work{dialogs};
    QWidget window;
    PictureView view{work, &window};
    LiftedBlock block{work};
    ImageButton imgRegion{QStringLiteral("imgRegion"), QStringLiteral("Zone"), &window};
    ImageButton imgColorPicker{QStringLiteral("imgColorPicker"), QStringLiteral("Pipette"), &window};
    QAction mnuToolsRegion;
    PointerModes modes{work, view, block, imgRegion, imgColorPicker, mnuToolsRegion, dialogs};
    StylePanel style{work, dialogs, &window};
    AnglePanel angle{&window};
    OneColourPanel panel{work, view, block, modes, style, angle, dialogs, &window};
    QSignalSpy editStateChanged{&panel, &OneColourPanel::editStateChanged};
    QSignalSpy backgroundColourLocked{&panel, &OneColourPanel::backgroundColourLocked};
    QSignalSpy focusRequested{&panel, &OneColourPanel::pictureFocusRequested};

    explicit OneColourBench(QSize picture = QSize(320, 240), Colour colour = rgb(0, 120, 60)) {
        work.ImageLoaded = true;
        resizePicture(picture);
        fillPicture(colour);
        style.txbWriteText->setText(QStringLiteral("Ága"));
        style.DispDialogColor(rgb(200, 40, 0));
    }

    void resizePicture(QSize size) {
        work.picDisp.setInnerSize(size);
        takeSize(work.picSnap, work.picDisp);
        work.readImageSize();
    }
    void fillPicture(Colour colour) { work.picDisp.setPicture(Raster(work.picDisp.innerSize(), colour)); }
    QString text() const { return style.txbWriteText->text(); }
    QFont font() const { return work.picTemp.Font(); }
    void setDirection(Direction direction) {
        panel.icb1Color3D->setCurrentIndex(static_cast<int>(direction) - 1);
    }
    void setDepth(int pixels) { panel.cboShadeThickness->setCurrentText(QString::number(pixels)); }
    void proceed() { panel.cmd1Color3DProceed->click(); }
};

inline std::vector<TextLayer> layersOf(Colour colour, std::int16_t pixels, Direction direction) {
    return extrusionLayers(colour, extrusionDepth(pixels), direction);
}

/// All layers of a text, one after the other, on a surface of its own.
inline Raster stampOf(const QFont& font, const QString& text, const std::vector<TextLayer>& layers,
                      QSize size) {
    Surface surface(QStringLiteral("expected"), size);
    surface.setFont(font);
    surface.setScaleMode(ScaleMode::Twips);
    for (const TextLayer& layer : layers)
        PrintTextLayer(surface, layer.x, layer.y, layer.colour, text);
    return surface.Image();
}

inline QSet<Colour> coloursOf(const Raster& raster) {
    QSet<Colour> colours;
    for (int y = 0; y < raster.height(); ++y)
        for (int x = 0; x < raster.width(); ++x)
            colours.insert(raster.pixel(x, y));
    return colours;
}

inline QSet<Colour> coloursOf(const std::vector<TextLayer>& layers) {
    QSet<Colour> colours;
    for (const TextLayer& layer : layers)
        colours.insert(std::min(layer.colour, BrightestLayer));
    return colours;
}

/// `below` with all pixels of a block that are not white laid over its upper-left corner.
inline Raster composed(Raster below, const Raster& block) {
    for (int y = 0; y < block.height(); ++y)
        for (int x = 0; x < block.width(); ++x)
            if (block.pixel(x, y) != White)
                below.setPixel(x, y, block.pixel(x, y));
    return below;
}

inline Raster maskOf(Raster block) {
    for (int y = 0; y < block.height(); ++y)
        for (int x = 0; x < block.width(); ++x)
            block.setPixel(x, y, block.pixel(x, y) == White ? White : Black);
    return block;
}

inline int countOf(const Raster& raster, Colour colour) {
    int count = 0;
    for (int y = 0; y < raster.height(); ++y)
        for (int x = 0; x < raster.width(); ++x)
            count += raster.pixel(x, y) == colour;
    return count;
}

} // namespace ovrano
