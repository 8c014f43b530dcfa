#pragma once

#include "document/workpicture.h"
#include "platform/commondialog.h"

#include <QObject>
#include <QString>

namespace ovrano {

/// The title (name without folder) under which a picture is saved when a title was typed and a row of the
/// save dialog's type list chosen: what stands up to the first dot, with the dot, and the type's extension.
/// A title without a dot is dropped altogether: "photo" becomes "bmp".
QString savedTitle(const QString& title, int filterIndex);

/// "Enregistrer Sous...": writes the work picture as BMP, JPEG or GIF.
///
/// JPEG and GIF are made from the temporary file "Temp.bmp" beside the target, JPEG as "Temp.jpg" first. A
/// user's own files of these names are set aside meanwhile. What a failed step leaves of the temporary files
/// stays; what was under the target's name before then stays as well.
class FileSave : public QObject {
    Q_OBJECT

public:
    FileSave(WorkPicture& work, Dialogs& dialogs, QObject* parent = nullptr);

    void mnuFileSave_Click();

    /// The question before a changed picture is given up; `text` differs by a blank between its askers.
    /// Yes saves first. False: stop, because the user cancelled here or in the save dialog.
    bool confirmDiscard(const QString& text);

private:
    void showSaveDialog();
    void write(const QString& folder);
    void writeJpeg(const QString& folder, int ratio);
    void writeGif(const QString& folder);
    int askRatio();

    WorkPicture& m_work;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
    QString m_lastTitle; // of the last save, after its extension was rewritten
    QString m_lastPath;
    QString LastRatio; // text of the last custom JPEG ratio
};

} // namespace ovrano
