#pragma once

#include "document/workpicture.h"
#include "platform/picturebox.h"

#include <QFrame>
#include <QObject>
#include <QScrollBar>

#include <cstdint>

namespace ovrano {

/// One scroll bar's numbers, in picture pixels.
struct ScrollRange {
    std::int16_t Max = 0;
    int SmallChange = 1;
    int LargeChange = 1;
};

/// The range for a picture of `picture` pixels in a viewport of `viewport` pixels. Where nothing overflows
/// Max is 0 and the steps stay those of `before`. An arrow step is the ratio viewport/overflow, a page step a
/// twentieth of the overflow but never less than an arrow step. Throws error::Overflow when the overflow
/// exceeds 16 bits.
ScrollRange scrollRange(double picture, double viewport, const ScrollRange& before);

/// The viewport: the frame picZ with the work picture in it, moved by two scroll bars.
class PictureView : public QObject {
    Q_OBJECT

public:
    /// Creates picZ, HScroll1 and VScroll1 as children of a window's widget.
    PictureView(WorkPicture& work, QWidget* parent);

    QFrame* const picZ;
    PictureBox* const picDisp;
    PictureBox* const picSnap; // hidden, at (0, 0)
    QScrollBar* const HScroll1;
    QScrollBar* const VScroll1;

    /// Width and height of the visible part in pixels.
    QSize viewportSize() const { return picZ->contentsRect().size(); }

    /// Recomputes both bars' ranges after any change of the picture's or the viewport's size.
    void setScrollMax();

    /// The picture may have another size now: takes it over, recomputes the bars' ranges and shows the size.
    /// Throws error::Overflow, before anything is shown, when the picture is larger than the bars can scroll.
    void fitToPicture();

    /// Back to the picture's upper-left corner.
    void scrollHome();

    /// Moves the bars as far as they can so that a point of the picture comes into view; tells whether
    /// anything moved.
    bool scrollTowards(QPoint point);

    void HScroll1_Change();
    void HScroll1_Scroll();
    void VScroll1_Change();
    void VScroll1_Scroll();

protected:
    /// The wheel over the viewport scrolls, with Shift sideways.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WorkPicture& m_work;
};

} // namespace ovrano
