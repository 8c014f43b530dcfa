#pragma once

#include "document/pictureview.h"
#include "document/workpicture.h"
#include "editing/liftedblock.h"
#include "platform/dialogs.h"
#include "platform/imagebutton.h"

#include <QKeyEvent>
#include <QObject>

namespace ovrano {

/// Moves and puts down a lifted block by keys while the picture has the keyboard: the arrows go by a pixel,
/// with Shift by ten, as far as the mouse could drag it; Return leaves it where it stands.
class BlockKeys : public QObject {
    Q_OBJECT

public:
    BlockKeys(WorkPicture& work, PictureView& view, LiftedBlock& block, const ImageButton& regionButton,
              Dialogs& dialogs, QObject* parent = nullptr);

Q_SIGNALS:
    /// What the Edit menu allows may have changed.
    void editStateChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool obey(const QKeyEvent& press);
    void move(QPoint by);
    void drop();

    WorkPicture& m_work;
    PictureView& m_view;
    LiftedBlock& m_block;
    const ImageButton& m_imgRegion;
    Dialogs& m_dialogs;
};

} // namespace ovrano
