#pragma once

#include <QComboBox>

namespace ovrano {

/// Makes a box offer every font of the screen, to be chosen from its list or typed, "Arial" at first. It is
/// wide enough for a count of characters; the list opens at once however many fonts there are.
void fillWithFonts(QComboBox& box, int characters);

} // namespace ovrano
