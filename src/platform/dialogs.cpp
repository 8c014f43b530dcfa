#include "platform/dialogs.h"

namespace ovrano {

void showInputError(Dialogs& dialogs, const QString& text) {
    dialogs.messageBox({text, QStringLiteral("Erreur"), Buttons::Ok, Icon::Information});
}

} // namespace ovrano
