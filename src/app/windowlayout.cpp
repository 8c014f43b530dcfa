#include "app/windowlayout.h"

#include <algorithm>

namespace ovrano {

WindowLayout WindowLayout::arrange(QSize area, QSize bars) {
    constexpr int LabelGap = 10;
    const int barHeight = std::max(0, area.height() - ReservedHeight - bars.height());
    const int viewWidth = std::max(0, area.width() - ViewLeft - bars.width() - Margin);
    WindowLayout layout;
    layout.fraTextPanel = QRect(Margin, 2, std::max(0, area.width() - 2 * Margin), PanelHeight);
    layout.VScroll1 = QRect(area.width() - Margin - bars.width(), ViewTop, bars.width(), barHeight);
    layout.picZ = QRect(ViewLeft, ViewTop, viewWidth, barHeight);
    layout.toolBox = QRect(Margin, ViewTop, ViewLeft - 2 * Margin, barHeight);
    layout.HScroll1 = QRect(ViewLeft, ViewTop + barHeight, viewWidth, bars.height());
    const int labelTop = layout.HScroll1.top() + bars.height() + LabelGap;
    layout.lblImageSize = QRect(Margin, labelTop, ViewLeft - Margin, LabelHeight);
    layout.lblFileSpec = QRect(ViewLeft, labelTop, viewWidth + bars.width(), LabelHeight);
    return layout;
}

} // namespace ovrano
