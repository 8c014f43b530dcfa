#pragma once

#include <QString>
#include <QStringList>

namespace ovrano {

/// Twips (1/1440 inch) in a pixel: 96 dots per inch on every screen, so that a text gives the same picture
/// everywhere.
inline constexpr int TwipsPerPixelX = 15;
inline constexpr int TwipsPerPixelY = 15;

/// The numbers under which the program knows mouse pointers.
enum class MousePointer { Default = 0, Cross = 2, SizeNS = 7, SizeWE = 9, Hourglass = 11, Move = 15 };

/// The pointer of the whole program: Hourglass shows over everything until Default is set.
void setScreenMousePointer(MousePointer pointer);
MousePointer screenMousePointer();

/// A family's name without the foundry that the system adds when it has the family from several:
/// "Nimbus Sans" for "Nimbus Sans [urw]".
QString withoutFoundry(QString family);

/// The families that can be chosen, plain names without foundry, each once, in the platform's order.
QStringList screenFonts();

} // namespace ovrano
