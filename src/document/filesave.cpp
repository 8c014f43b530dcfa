#include "document/filesave.h"

#include "document/bmpfile.h"
#include "document/files.h"
#include "document/giffile.h"
#include "document/jpegfile.h"
#include "document/safefile.h"
#include "document/setaside.h"
#include "platform/errorreporter.h"
#include "platform/numbers.h"
#include "platform/paths.h"

#include <QFileInfo>

namespace ovrano {

namespace {

/// Rows of the save dialog's type list.
enum FilterIndex { Bmp = 1, Jpeg100, Jpeg80, Jpeg50, JpegCustom, Gif };

constexpr int LowestRatio = 20;
constexpr int HighestRatio = 100;

QString typeList() {
    return QStringLiteral("Image en mode point  (*.BMP)|*.BMP|"
                          "Format JPG-Ratio 100% (*.JPG)|*.JPG|"
                          "Format JPG-Ratio 80%  (*.JPG)|*.JPG|"
                          "Format JPG-Ratio 50%  (*.JPG)|*.JPG|"
                          "Format JPG-Ratio personnalisé (*.JPG)|*.JPG|"
                          "Fichier GIF 256 couleurs|*.gif");
}

QString extensionOf(int filterIndex) {
    if (filterIndex == Bmp)
        return QStringLiteral("bmp");
    if (filterIndex == Gif)
        return QStringLiteral("gif");
    return filterIndex >= Jpeg100 && filterIndex <= JpegCustom ? QStringLiteral("jpg") : QString();
}

QString temporaryBmp(const QString& folder) {
    return folder + QStringLiteral("Temp.bmp");
}
QString temporaryJpg(const QString& folder) {
    return folder + QStringLiteral("Temp.jpg");
}

/// The folder of a path, with the separator that is there or the system's own.
QString folderOf(const QString& path, const QString& title) {
    return AddBackslash(path.chopped(title.size()));
}

/// If the name is a link to the temporary file, the result would be deleted with it. Throws
/// error::PathFileAccess.
void requireApart(const QString& temporary, const QString& target) {
    if (behindLinks(target) == behindLinks(temporary))
        throw RuntimeError(error::PathFileAccess);
}

QString targetOf(const QString& path, int filterIndex) {
    const QString title = QFileInfo(path).fileName();
    return folderOf(path, title) + savedTitle(title, filterIndex);
}

} // namespace

QString savedTitle(const QString& title, int filterIndex) {
    return title.left(title.indexOf(QLatin1Char('.')) + 1) + extensionOf(filterIndex);
}

FileSave::FileSave(WorkPicture& work, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {}

bool FileSave::confirmDiscard(const QString& text) {
    if (!m_work.ImageModified)
        return true;
    const Answer answer =
        m_dialogs.messageBox({text, QStringLiteral("Image modifiée"), Buttons::YesNoCancel, Icon::Question});
    if (answer != Answer::Yes)
        return answer == Answer::No;
    mnuFileSave_Click();
    return !m_work.SaveCancelled;
}

void FileSave::mnuFileSave_Click() {
    m_work.SaveCancelled = false;
    trapErrors(m_dialogs, QStringLiteral("Erreur lors de l'enregistrement du fichier !"), [this] {
        showSaveDialog();
        m_work.CurrentFileName = CommonDialog1.FileName;
        m_lastTitle = savedTitle(CommonDialog1.FileTitle, CommonDialog1.FilterIndex);
        const QString folder = folderOf(CommonDialog1.FileName, CommonDialog1.FileTitle);
        m_lastPath = folder + m_lastTitle;
        write(folder);
        m_work.showFileName(m_lastPath);
    });
}

void FileSave::showSaveDialog() {
    CommonDialog1.DialogTitle = QStringLiteral("Enregistrer l'image Sous...");
    CommonDialog1.Filter = typeList();
    CommonDialog1.Flags = CommonDialog::SaveAskBeforeOverwriting;
    CommonDialog1.CancelError = true;
    // Not CurrentFileName, which may name a file that is no picture; and the file of a text dialog's picture
    // has been deleted by the time that its name is shown.
    const QString shown = m_work.shownPath();
    CommonDialog1.FileName = FileExists(shown) ? shown : QString();
    CommonDialog1.Target = targetOf;
    try {
        CommonDialog1.ShowSave();
    } catch (const RuntimeError& caught) {
        m_work.SaveCancelled = caught.number() == error::Cancelled;
        throw;
    }
}

void FileSave::write(const QString& folder) {
    switch (CommonDialog1.FilterIndex) {
    case Bmp:
        return SavePicture(m_work.picDisp.Image(), m_lastPath);
    case Jpeg100:
        return writeJpeg(folder, 100);
    case Jpeg80:
        return writeJpeg(folder, 80);
    case Jpeg50:
        return writeJpeg(folder, 50);
    case JpegCustom:
        return writeJpeg(folder, askRatio());
    case Gif:
        return writeGif(folder);
    default:
        return;
    }
}

int FileSave::askRatio() {
    if (LastRatio.isEmpty())
        LastRatio = QString::number(HighestRatio);
    LastRatio = m_dialogs.inputBox(
        {QStringLiteral("Indiquez le ratio de compression (20-100) pour le fichier %1.").arg(m_lastTitle),
         QStringLiteral("Valeur du ratio de compression"), LastRatio});
    const int ratio = integerValue(LastRatio);
    return ratio < LowestRatio || ratio > HighestRatio ? HighestRatio : ratio;
}

void FileSave::writeJpeg(const QString& folder, int ratio) {
    const QString bmp = temporaryBmp(folder);
    const QString jpg = temporaryJpg(folder);
    requireWritable(m_lastPath); // before the work, and before anything is set aside
    const SetAside keptBmp(bmp, m_lastPath);
    const SetAside keptJpg(jpg, m_lastPath);
    SavePicture(m_work.picDisp.Image(), bmp, SafeFile::Purpose::Temporary);
    requireApart(bmp, m_lastPath);
    const bool inPlace = keptJpg.isTarget(); // "Temp.jpg" itself is to be saved
    ConvertBMPtoJPG(bmp, ratio, -1, inPlace ? SafeFile::Purpose::Result : SafeFile::Purpose::Temporary);
    if (!inPlace) {
        requireApart(jpg, m_lastPath);
        moveToResult(jpg, m_lastPath);
    }
    deleteFile(bmp);
}

void FileSave::writeGif(const QString& folder) {
    const QString bmp = temporaryBmp(folder);
    requireWritable(m_lastPath);
    const SetAside keptBmp(bmp, m_lastPath);
    SavePicture(m_work.picDisp.Image(), bmp, SafeFile::Purpose::Temporary);
    requireApart(bmp, m_lastPath);
    ConvertBMPtoGIF(bmp, m_lastPath);
    deleteFile(bmp);
}

} // namespace ovrano
