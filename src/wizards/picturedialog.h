#pragma once

#include "platform/colourbox.h"
#include "platform/commondialog.h"
#include "platform/dialogs.h"
#include "platform/surface.h"
#include "wizards/exampleframe.h"

#include <QDialog>
#include <QLabel>
#include <QString>

namespace ovrano {

/// A dialog that composes a picture and shows it with its size, which is that of the new image. Enlarging the
/// dialog enlarges the picture.
class PictureDialog : public QDialog {
    Q_OBJECT

public:
    /// `size` is the picture's first one, in pixels.
    PictureDialog(const QString& pictureName, QSize size, Dialogs& dialogs, QWidget* parent);
    Q_DISABLE_COPY_MOVE(PictureDialog)
    ~PictureDialog() override;

    /// From here on isLeaving() is true.
    void done(int result) override;

protected:
    Surface m_picture;

public:
    ExampleFrame* const Frame6;
    QLabel* const lblPictureSize;

protected:
    /// Whether the dialog is closing: then nothing is drawn, taken over or reported any more.
    bool isLeaving() const { return m_leaving; }
    /// Hides the dialog for good. To be called first in the destructor of whatever handles its events: a
    /// field that loses the keyboard announces it.
    void putAway();

    /// As large as wanted, within the screen. Called for the first time when everything is in its place, and
    /// once again when the dialog is first active and its own frame is known.
    virtual void placeOnScreen();
    /// The part of the screen that is left for the dialog inside its frame: what the window manager puts
    /// around it, or around its parent as long as it is not shown itself.
    QRect roomOnScreen() const;
    /// The picture has the size that it is first seen with.
    virtual void firstShown() {}

    /// Asks for a colour and shows it in a box; reports errors under a handler's name. Tells whether one was
    /// chosen.
    bool chooseColour(ColourBox& box, const QString& handler, int flags);

    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

    Dialogs& m_dialogs;

private:
    void showPictureSize();

    CommonDialog CommonDialog1;
    bool m_leaving = false;
    bool m_settled = false; // has been active once
};

/// Points that the text of a size box asks for, at most 999; 0 or less where it asks for none.
double typedPoints(const QString& text);

} // namespace ovrano
