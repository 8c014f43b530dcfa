#include "platform/errorreporter.h"

namespace ovrano {

void ErrMsgProc(Dialogs& dialogs, const QString& procName, const RuntimeError& error) {
    dialogs.messageBox({procName + QStringLiteral("\r\n") + QString::number(error.number()) +
                            QStringLiteral("     ") + error.description(),
                        QString(), Buttons::Ok, Icon::None});
}

} // namespace ovrano
