#include "platform/imagebutton.h"

#include "platform/accessibletoggle.h"

namespace ovrano {

ImageButton::ImageButton(const QString& name, const QString& toolTip, QWidget* parent)
    : QToolButton(parent) {
    AccessibleToggle::install();
    setCheckable(true); // before the first name, which is announced as that of a button or of a toggle
    setObjectName(name);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QToolButton::toggled, this, [this] { Q_EMIT AppearanceChanged(Appearance()); });
}

void ImageButton::setAppearance(int appearance) {
    setChecked(appearance == 1);
}

} // namespace ovrano
