#pragma once

#include <QRect>
#include <QSize>

namespace ovrano {

/// Where the main window's variable parts stand, in pixels of the window's content area (below the menu
/// bar). The tool panel lies on top, the tool box at the left, the picture in the rest.
struct WindowLayout {
    QRect fraTextPanel;
    QRect toolBox;
    QRect picZ;
    QRect VScroll1;
    QRect HScroll1;
    QRect lblImageSize;
    QRect lblFileSpec;

    // Design values.
    static constexpr int Margin = 5;
    static constexpr int PanelHeight = 138;
    static constexpr int ViewLeft = 128;
    static constexpr int ViewTop = 2 + PanelHeight + 4;
    static constexpr int LabelHeight = 20;
    /// Height that the rest of a window takes up beside the picture and its horizontal bar.
    static constexpr int ReservedHeight = 200;

    /// Arranges for a width and height W × H (of the screen at first, of the window afterwards).
    /// `bars` holds the vertical bar's width and the horizontal bar's height.
    static WindowLayout arrange(QSize area, QSize bars);
};

} // namespace ovrano
