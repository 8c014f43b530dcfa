#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"

#include <QObject>

namespace ovrano {

/// The command that puts the one-level snapshot back.
class Undo : public QObject {
    Q_OBJECT

public:
    Undo(WorkPicture& work, PictureView& view, Dialogs& dialogs, QObject* parent = nullptr);

    void mnuEditUndo_Click();

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();

private:
    void putBack();

    WorkPicture& m_work;
    PictureView& m_view;
    Dialogs& m_dialogs;
};

} // namespace ovrano
