#include "app/windowlayout.h"

#include <algorithm>

namespace ovrano {

WindowLayout WindowLayout::arrange(QSize area, QSize bars, const WindowDesign& design) {
    constexpr int LabelGap = 10;
    constexpr int LeastFileSpec = 160; // pixels for the name of the file, however long the hint
    constexpr int Margin = WindowDesign::Margin;
    const int left = design.viewLeft();
    const int top = design.viewTop();
    const int barHeight = std::max(0, area.height() - ReservedHeight - bars.height());
    const int viewWidth = std::max(0, area.width() - left - bars.width() - Margin);
    WindowLayout layout;
    layout.fraTextPanel = QRect(Margin, 2, std::max(0, area.width() - 2 * Margin), design.panelHeight);
    layout.VScroll1 = QRect(area.width() - Margin - bars.width(), top, bars.width(), barHeight);
    layout.picZ = QRect(left, top, viewWidth, barHeight);
    layout.toolBox = QRect(Margin, top, design.toolBoxWidth, barHeight);
    layout.HScroll1 = QRect(left, top + barHeight, viewWidth, bars.height());
    const int labelTop = layout.HScroll1.top() + bars.height() + LabelGap;
    layout.lblImageSize = QRect(Margin, labelTop, left - Margin, design.labelHeight);
    layout.lblFileSpec = QRect(left, labelTop, viewWidth + bars.width(), design.labelHeight);
    const int hintWidth = std::clamp(layout.lblFileSpec.width() - LeastFileSpec, 0, design.hintWidth);
    layout.lblHint = layout.lblFileSpec;
    layout.lblHint.setLeft(layout.lblFileSpec.right() + 1 - hintWidth);
    return layout;
}

} // namespace ovrano
