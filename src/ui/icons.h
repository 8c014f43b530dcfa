#pragma once

#include <QAbstractButton>
#include <QString>

namespace ovrano {

/// Gives a button one of the program's own icons ("save", "undo", "region", "picker", "bold", "italic",
/// "quit"). They are line drawings that take the colour of the button's text, also after the theme has
/// changed, and stay sharp at every scale factor.
void setToolIcon(QAbstractButton& button, const QString& name);

} // namespace ovrano
