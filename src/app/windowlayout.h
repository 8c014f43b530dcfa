#pragma once

#include <QRect>
#include <QSize>

namespace ovrano {

/// The fixed measures of the main window in pixels. They are the least; large desktop fonts need more.
struct WindowDesign {
    static constexpr int Margin = 5;
    int panelHeight = 138;
    int toolBoxWidth = 118;
    int labelHeight = 20;
    int hintWidth = 500;

    int viewLeft() const { return toolBoxWidth + 2 * Margin; }
    int viewTop() const { return panelHeight + 6; }
};

/// Where the main window's variable parts stand, in pixels from the upper-left corner of the content area
/// (below the menu bar). The tool panel lies on top, the tool box at the left, the picture in the rest.
struct WindowLayout {
    QRect fraTextPanel;
    QRect toolBox;
    QRect picZ;
    QRect VScroll1;
    QRect HScroll1;
    QRect lblImageSize;
    QRect lblFileSpec; // its text ends where the hint begins
    QRect lblHint;

    /// Height that the rest of a window takes up beside the picture and its horizontal bar.
    static constexpr int ReservedHeight = 200;

    /// Arranges for a width and height (the screen's at first, afterwards the content's width and the whole
    /// window's height).
    /// `bars` holds the vertical bar's width and the horizontal bar's height.
    static WindowLayout arrange(QSize area, QSize bars, const WindowDesign& design);
};

} // namespace ovrano
