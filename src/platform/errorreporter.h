#pragma once

#include "platform/dialogs.h"
#include "platform/runtimeerror.h"

#include <QString>

namespace ovrano {

/// Shows an unexpected run-time error: the procedure's name (or a sentence), then on a second line the
/// error's number, five blanks and its description. OK button, no icon, the program's own title.
void ErrMsgProc(Dialogs& dialogs, const QString& procName, const RuntimeError& error);

/// Runs a handler and catches its errors: a cancelled dialog (32755) ends it silently; any other run-time
/// error, or running out of memory, is reported with the procedure's name.
template<typename Handler>
void trapErrors(Dialogs& dialogs, const QString& procName, Handler&& handler) {
    try {
        handler();
    } catch (const RuntimeError& caught) {
        if (caught.number() != error::Cancelled)
            ErrMsgProc(dialogs, procName, caught);
    } catch (const std::bad_alloc&) {
        ErrMsgProc(dialogs, procName, RuntimeError(error::OutOfMemory));
    }
}

} // namespace ovrano
