#include "platform/imagebutton.h"

namespace ovrano {

ImageButton::ImageButton(const QString& name, const QString& toolTip, QWidget* parent)
    : QToolButton(parent) {
    setObjectName(name);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setCheckable(true);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::toggled, this, [this] { Q_EMIT AppearanceChanged(Appearance()); });
}

void ImageButton::setAppearance(int appearance) {
    setChecked(appearance == 1);
}

} // namespace ovrano
