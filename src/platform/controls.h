#pragma once

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QWidget>

namespace ovrano {

/// Gives a control the name it is found by and the one that is read aloud, and passes it on.
template<typename Control>
Control* named(Control* control, const char* name, const QString& accessibleName = QString()) {
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(accessibleName);
    return control;
}

/// Labels a box, by its accessible name, where no visible label stands beside it: what a combo box tells as
/// its name on the accessibility bus is what is chosen in it, and only a label tells what that is.
inline void labelUnseen(QComboBox& box) {
    auto* label = new QLabel(box.accessibleName(), box.parentWidget());
    label->setBuddy(&box);
    label->hide();
}

/// A box to type in and to choose from, which never grows by what is typed. Its field is read aloud like it.
inline void makeEditable(QComboBox& box) {
    box.setEditable(true);
    box.lineEdit()->setAccessibleName(box.accessibleName());
    box.setInsertPolicy(QComboBox::NoInsert);
}

/// The same for numbers: what is typed is not completed, which would make "10" of a typed "1". The arrow keys
/// and the wheel go on from the number that is shown, typed or chosen, to the next of the list.
void makeNumberBox(QComboBox& box);

/// Adds the whole numbers from `first` to at most `last`.
inline void addNumbers(QComboBox& box, int first, int last, int step = 1) {
    QStringList numbers;
    for (int number = first; number <= last; number += step)
        numbers.append(QString::number(number));
    box.addItems(numbers);
}

} // namespace ovrano
