#pragma once

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

} // namespace ovrano
