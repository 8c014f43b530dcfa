#include "document/fileopen.h"

#include "document/picturereader.h"
#include "platform/errorreporter.h"

namespace ovrano {

FileOpen::FileOpen(WorkPicture& work, PictureView& view, FileSave& save, Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view)
    , m_save(save)
    , m_dialogs(dialogs)
    , CommonDialog1(dialogs) {}

void FileOpen::mnuFileOpen_Click() {
    trapErrors(m_dialogs, QStringLiteral("mnuFileOpen_Click"), [this] {
        if (!m_save.confirmDiscard(QStringLiteral("Enregistrer l'image?")))
            return;
        CommonDialog1.DialogTitle = QStringLiteral("Ouvrir une image de fond");
        CommonDialog1.ShowOpenPicture();
        if (!CommonDialog1.FileName.isEmpty())
            open(CommonDialog1.FileName);
        m_view.picDisp->setFocus();
    });
}

void FileOpen::openDropped(const QString& path) {
    trapErrors(m_dialogs, QStringLiteral("mnuFileOpen_Click"), [&] {
        const Raster picture = LoadPicture(path); // before anything is asked or given up
        if (m_save.confirmDiscard(QStringLiteral("Enregistrer l'image?"))) {
            m_work.CurrentFileName = path;
            take(picture);
            present(path);
        }
        m_view.picDisp->setFocus();
    });
}

void FileOpen::open(const QString& path) {
    m_work.CurrentFileName = path;
    // A file that cannot be read leaves it like this: emptied and sizing itself.
    m_work.picDisp.setPicture(Raster());
    m_work.picDisp.setAutoSize(true);
    take(LoadPicture(path));
    present(path);
}

void FileOpen::take(const Raster& picture) {
    Surface& picDisp = m_work.picDisp;
    picDisp.setPicture(Raster());
    picDisp.setAutoSize(true);
    picDisp.setPicture(picture);
    picDisp.setAutoSize(false);
}

void FileOpen::present(const QString& path) {
    resetCompanions();
    m_work.showFileName(path);
    m_view.scrollHome();
    m_view.fitToPicture();
    Q_EMIT pickerReleased();
    Q_EMIT pictureReplaced();
    m_work.ImageLoaded = true;
    m_work.ImageModified = false;
}

void FileOpen::resetCompanions() {
    for (Surface* companion : {&m_work.picSnap, &m_work.picUndo})
        emptyToSizeOf(*companion, m_work.picDisp);
    m_work.picRegion.setPicture(Raster());
    m_work.picMask.setPicture(Raster());
}

} // namespace ovrano
