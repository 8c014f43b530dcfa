#pragma once

#include "document/filesave.h"
#include "document/pictureview.h"
#include "document/workpicture.h"
#include "platform/commondialog.h"

#include <QObject>

namespace ovrano {

/// "Ouvrir une image de fond...": replaces the work picture by a picture file.
class FileOpen : public QObject {
    Q_OBJECT

public:
    FileOpen(WorkPicture& work, PictureView& view, FileSave& save, Dialogs& dialogs,
             QObject* parent = nullptr);

    void mnuFileOpen_Click();
    /// Opens a file that was dropped on the window, after the same question. What is no picture is reported
    /// and changes nothing.
    void openDropped(const QString& path);

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();
    /// Whatever was framed or lifted belonged to the picture before.
    void pictureReplaced();

private:
    void open(const QString& path);
    void take(const Raster& picture);
    void present(const QString& path);
    void resetCompanions();

    WorkPicture& m_work;
    PictureView& m_view;
    FileSave& m_save;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
};

} // namespace ovrano
