#pragma once

#include "document/filetools.h"

#include <QRect>
#include <QString>
#include <QTemporaryDir>

#include <gif_lib.h>
#include <vector>

namespace ovrano {

/// One frame of a GIF, all of one colour of the table.
struct GifFrame {
    QRect place;
    int colour = 0;
    int transparent = -1; // a colour's index
    bool interlaced = false;
};

/// Writes a GIF with the colours 0 red, 1 green, 2 blue, 3 black.
inline void writeGif(const QString& path, QSize screen, const std::vector<GifFrame>& frames) {
    int error = 0;
    GifFileType* gif = EGifOpenFileName(qPrintable(path), false, &error);
    if (gif == nullptr)
        qFatal("cannot write %s", qPrintable(path));
    EGifSetGifVersion(gif, true);
    const GifColorType colours[] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {0, 0, 0}};
    ColorMapObject* table = GifMakeMapObject(4, colours);
    EGifPutScreenDesc(gif, screen.width(), screen.height(), 2, 0, table);
    for (const GifFrame& frame : frames) {
        GraphicsControlBlock control{DISPOSE_DO_NOT, false, 10, frame.transparent};
        GifByteType block[4];
        EGifGCBToExtension(&control, block);
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, sizeof block, block);
        EGifPutImageDesc(gif, frame.place.x(), frame.place.y(), frame.place.width(), frame.place.height(),
                         frame.interlaced, nullptr);
        std::vector<GifPixelType> row(static_cast<std::size_t>(frame.place.width()),
                                      static_cast<GifPixelType>(frame.colour));
        for (int y = 0; y < frame.place.height(); ++y)
            EGifPutLine(gif, row.data(), frame.place.width());
    }
    GifFreeMapObject(table);
    EGifCloseFile(gif, &error);
}

/// The content of a GIF of these frames.
inline QByteArray gif(QSize screen, const std::vector<GifFrame>& frames) {
    const QTemporaryDir folder;
    writeGif(folder.filePath("a.gif"), screen, frames);
    return contentOf(folder.filePath("a.gif"));
}

} // namespace ovrano
