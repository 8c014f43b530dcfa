#include "document/filenew.h"

#include "platform/errorreporter.h"

namespace ovrano {

FileNew::FileNew(WorkPicture& work, PictureView& view, FileSave& save, ColourBox& label, Dialogs& dialogs,
                 QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view)
    , m_save(save)
    , LblFond(label)
    , m_dialogs(dialogs) {}

void FileNew::mnuFileNew_Click() {
    trapErrors(m_dialogs, QStringLiteral("mnuFileNew_Click"), [this] {
        if (m_save.confirmDiscard(QStringLiteral("Enregistrer l'image ?")) && ask())
            build();
    });
}

bool FileNew::ask() {
    m_choice.NewImageCancelled = 0;
    FrmNouv3DText dialog(m_choice, m_dialogs, m_view.picZ->window());
    dialog.LabCoulFond->setBackColor(LblFond.BackColor());
    dialog.exec();
    return m_choice.NewImageCancelled != 1;
}

void FileNew::build() {
    Surface& picDisp = m_work.picDisp;
    for (Surface* surface : {&picDisp, &m_work.picSnap, &m_work.picUndo, &m_work.picRegion, &m_work.picMask})
        surface->setPicture(Raster());
    m_work.showFileName(QString());
    m_view.scrollHome();
    picDisp.setWidth(double(float(m_choice.NewImageWidth)));
    picDisp.setHeight(double(float(m_choice.NewImageHeight)));
    picDisp.setBackColor(m_choice.NewImageBackColor);
    LblFond.setBackColor(m_choice.NewImageBackColor);
    Q_EMIT backgroundColourUnlocked();
    takeSize(m_work.picSnap, picDisp);
    takeSize(m_work.picMask, picDisp);
    m_view.fitToPicture();
    Q_EMIT pickerReleased();
    Q_EMIT pictureReplaced();
    m_work.ImageLoaded = true;
    m_work.ImageModified = false;
    m_view.picDisp->setFocus();
}

} // namespace ovrano
