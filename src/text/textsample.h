#pragma once

#include "platform/colourbox.h"

namespace ovrano {

/// Shows a few letters in the label's font. Letters too large for the label are shown smaller instead of cut;
/// the label's font stays what it was given.
class TextSample : public ColourBox {
    Q_OBJECT

public:
    using ColourBox::ColourBox;

    /// The label's font, or as large a one as fits.
    QFont shownFont() const;

protected:
    void paintCaption(QPaintEvent* event) override;
};

/// The background that lets letters of a colour be seen: white, and blue behind white ones.
constexpr Colour sampleGround(Colour letters) {
    return letters == White ? rgb(0, 0, 255) : White;
}

} // namespace ovrano
