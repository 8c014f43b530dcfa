#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"

#include <QObject>

namespace ovrano {

/// What both text dialogs do to the main window when their picture becomes the work picture.
class Handover : public QObject {
    Q_OBJECT

public:
    Handover(WorkPicture& work, PictureView& view, QObject* parent = nullptr);

    /// Makes a picture the work picture, which takes its size, and fits the hidden companions to it. Without
    /// memory for that (error::OutOfMemory) all of them are left as they were.
    void take(const Raster& picture);
    /// Shows the new picture from its upper-left corner, with its size, and leaves the tools of the one
    /// before.
    void present();

    WorkPicture& work() { return m_work; }

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();
    /// The background-colour button and its label can no longer be used.
    void backgroundColourLocked();
    /// Whatever was framed or lifted belonged to the picture before.
    void pictureReplaced();

private:
    WorkPicture& m_work;
    PictureView& m_view;
};

} // namespace ovrano
