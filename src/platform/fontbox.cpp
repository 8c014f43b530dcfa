#include "platform/fontbox.h"

#include "platform/controls.h"
#include "platform/screen.h"

#include <QListView>

namespace ovrano {

void fillWithFonts(QComboBox& box, int characters) {
    const QString first = QStringLiteral("Arial");
    makeEditable(box);
    // Otherwise every name is measured, for the box's width and again for the list's rows.
    box.setMinimumContentsLength(characters);
    box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (auto* list = qobject_cast<QListView*>(box.view()))
        list->setUniformItemSizes(true);
    box.addItems(screenFonts());
    box.setCurrentIndex(box.findText(first));
    box.setEditText(first);
}

} // namespace ovrano
