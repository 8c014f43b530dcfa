#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "editing/pastequestion.h"
#include "platform/commondialog.h"
#include "platform/imagebutton.h"

#include <QObject>

#include <optional>

namespace ovrano {

/// Brings a picture of the clipboard or of a file onto the work picture, as a lifted block at its upper-left
/// corner, or in its place.
class Paste : public QObject {
    Q_OBJECT

public:
    Paste(WorkPicture& work, PictureView& view, LiftedBlock& block, ImageButton& imgRegion, Dialogs& dialogs,
          QObject* parent = nullptr);

    void mnuEditPaste_Click();
    void mnuEditPasteTransparent_Click();
    void mnuEditPasteFromFile_Click();
    void mnuEditPasteFromFileTransparent_Click();
    void Mnu_ColleNouvIMG_Click();

Q_SIGNALS:
    /// The colour picker is to be left.
    void pickerReleased();
    /// What the Edit menu allows may have changed.
    void editStateChanged();

private:
    /// How far the paste under way has come.
    struct Progress {
        std::optional<Surface::Contents> before; // the work picture as it was, without a frame
        bool resized = false;                    // it has another size
        bool lifted = false;                     // the block is composed
    };

    using Command = void (Paste::*)();
    void run(Command command, bool transparent, const QString& name);
    void afterwards(bool transparentBefore);
    void PasteFromClipboard();
    void PasteFromFile();

    QString askFile();
    void reportNoPicture();
    void prepare();
    void load(const Raster& picture);
    void place(const Raster& picture, const PasteQuestion& question);
    bool makeRoom(const PasteQuestion& question);
    void takeSizeOfPasted();
    bool lift();
    bool cutBlock();
    bool cutMask();
    void offerForDragging();
    void replacePicture(const Raster& picture);

    WorkPicture& m_work;
    PictureView& m_view;
    LiftedBlock& m_block;
    ImageButton& m_imgRegion;
    Dialogs& m_dialogs;
    CommonDialog CommonDialog1;
    Progress m_progress;
};

} // namespace ovrano
