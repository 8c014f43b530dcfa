#pragma once

#include "model/pixels.h"
#include "platform/raster.h"

#include <QImage>
#include <QString>

namespace ovrano::model {

/// The files that can be chosen: first pictures of 20 to 120 pixels a side, and two of more than 256, with
/// few colours, so that corner colours and white come up everywhere; then a damaged one; then those that may
/// have been saved.
inline constexpr int SmallPictures = 10;
inline constexpr int Pictures = SmallPictures + 2;
inline constexpr int DamagedFile = Pictures;
inline constexpr int FirstSaved = Pictures + 1;
inline constexpr int FilesInAll = FirstSaved + 9;
/// Names to type into the save dialog; the last one is in a folder that is not there.
inline constexpr int TypedNames = 4;

/// The colours that pictures and dialogs use; negative for none.
inline constexpr int Colours = 6;
Rgb colourAt(int index);

QString fileName(int index);
QString typedName(int index);
Pixels testPicture(int index);

QImage toImage(const Pixels& pixels);
Pixels toPixels(const QImage& image);
Pixels toPixels(const Raster& raster);

/// Writes the pictures and the damaged file into a folder.
void writeTestPictures(const QString& folder);

} // namespace ovrano::model
