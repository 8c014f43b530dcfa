#pragma once

#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "platform/dialogs.h"

#include <QObject>

namespace ovrano {

/// What the program puts on the system clipboard: the lifted block, or else the whole picture.
class CopyCut : public QObject {
    Q_OBJECT

public:
    CopyCut(WorkPicture& work, LiftedBlock& block, Dialogs& dialogs, QObject* parent = nullptr);

    /// A step that fails is skipped and the next one runs, unless it fails for want of memory.
    void mnuEditCopy_Click();
    /// Copies, and fills the zone but for its right and bottom edge with the background colour.
    void mnuEditCut_Click();
    void mnuEditClearClipboard_Click();

Q_SIGNALS:
    /// What the Edit menu allows may have changed.
    void editStateChanged();

private:
    bool requirePicture();
    void copy();
    void copyZone();

    WorkPicture& m_work;
    LiftedBlock& m_block;
    Dialogs& m_dialogs;
};

} // namespace ovrano
