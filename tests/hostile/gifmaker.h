#pragma once

#include <QByteArray>
#include <QList>
#include <QRect>
#include <QRgb>

#include <optional>

namespace ovrano::hostile {

/// A GIF file by its parts, with codes of any size: each pixel is a code of its own and the table starts anew
/// before it grows, which every reader must understand.
struct GifMaker {
    struct Frame {
        QRect place;
        QByteArray indices; // row by row from the top
        QList<QRgb> palette;
        bool interlaced = false;
        std::optional<int> transparent;
        int codeBits = 2;       // as announced, of a pixel
        bool endCode = true;    // behind the last pixel
        QByteArray codes;       // in place of those of the indices
        int blockBytes = 255;   // of a block of codes
        bool terminated = true; // by an empty block
    };

    QByteArray version = "89a";
    QSize screen;
    QList<QRgb> palette; // 2, 4, … 256 colours, or none
    int background = 0;
    QByteArray before; // extensions in front of the frames
    QList<Frame> frames;
    bool terminated = true;

    QByteArray bytes() const;
};

/// An extension of a kind, of one block.
QByteArray gifExtension(int kind, const QByteArray& block);

} // namespace ovrano::hostile
