#pragma once

#include "platform/colourbox.h"

#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QString>

namespace ovrano {

/// A titled frame; in a title, "&&" is the character "&".
QGroupBox* groupFrame(const char* name, const QString& title, QWidget* parent);

/// A small button "..." that is read aloud by its tooltip.
QPushButton* moreButton(const char* name, const QString& toolTip, QWidget* parent);

/// A colour with a caption on it that stays readable whatever the colour.
ColourBox* captionedColour(const char* name, const QString& caption, Colour colour, QWidget* parent);

/// Gives a layout the small margins and distances of all layouts in frames.
void inset(QLayout& layout);

/// A layout of that kind for a frame.
template<typename Layout>
Layout* insetLayout(QGroupBox& box) {
    auto* layout = new Layout(&box);
    inset(*layout);
    return layout;
}

} // namespace ovrano
