#pragma once

#include "document/filesave.h"
#include "document/frmnouv3dtext.h"
#include "document/pictureview.h"
#include "document/workpicture.h"
#include "platform/colourbox.h"

#include <QObject>

namespace ovrano {

/// "Nouveau texte 3D": replaces the work picture by a blank one.
class FileNew : public QObject {
    Q_OBJECT

public:
    /// `label` is LblFond, which shows the current background colour, which a new picture takes and gives.
    FileNew(WorkPicture& work, PictureView& view, FileSave& save, ColourBox& label, Dialogs& dialogs,
            QObject* parent = nullptr);

    void mnuFileNew_Click();

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();
    /// Whatever was framed or lifted belonged to the picture before.
    void pictureReplaced();
    /// The background-colour button and its label can be used again.
    void backgroundColourUnlocked();

private:
    bool ask();
    void build();

    WorkPicture& m_work;
    PictureView& m_view;
    FileSave& m_save;
    ColourBox& LblFond;
    Dialogs& m_dialogs;
    NewImageChoice m_choice;
};

} // namespace ovrano
