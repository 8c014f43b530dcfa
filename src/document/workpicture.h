#pragma once

#include "platform/dialogs.h"
#include "platform/surface.h"

#include <QObject>
#include <QString>

#include <cstdint>

namespace ovrano {

/// The document: the work picture, its hidden companion surfaces and what is known about it.
class WorkPicture : public QObject {
    Q_OBJECT

public:
    /// What the program starts with: a blank white picture.
    static constexpr QSize InitialSize = QSize(640, 480);

    explicit WorkPicture(Dialogs& dialogs, QObject* parent = nullptr);

    Surface picDisp;   // the work picture
    Surface picUndo;   // the one-level undo snapshot
    Surface picSnap;   // the background under a lifted block
    Surface picAuto;   // takes the size of whatever is loaded into it
    Surface picTemp;   // a text stamp before it is turned
    Surface picRegion; // the lifted block
    Surface picMask;   // black where the lifted block is opaque, white where it is see-through

    bool ImageLoaded = false;
    bool ImageModified = false;
    bool UndoAvailable = false;
    bool SaveCancelled = false;
    std::int32_t ImageWidth = 0;
    std::int32_t ImageHeight = 0;
    QString CurrentFileName;

    /// Copies what src shows into the upper-left corner of dst and makes it persistent there. dst keeps its
    /// size and shows its background beside the copy. A failed copy is reported and gives false.
    bool BitbltPic(const Surface& src, Surface& dst);

    /// Keeps what picDisp shows for one Undo. Without memory for it (error::OutOfMemory) the snapshot before
    /// is kept.
    void TakeUndoSnapshot();

    /// Takes ImageWidth and ImageHeight from picDisp.
    void readImageSize();
    /// Announces the size as "L=640  H=480", or with another letter for the width.
    void showImageSize(QChar widthLetter = u'L');
    void showFileName(const QString& text);
    /// The path of the picture's file; empty when there is none yet.
    QString shownPath() const;

Q_SIGNALS:
    void imageSizeShown(const QString& text);
    void fileNameShown(const QString& text);

protected:
    /// The copy itself; throws RuntimeError where it fails.
    virtual void copyWhole(const Surface& src, Surface& dst);

private:
    Dialogs& m_dialogs;
    QString m_shownFileName;
};

/// Gives dst the outer size of src.
void takeSize(Surface& dst, const Surface& src);

/// Empties dst and gives it the outer size of src.
void emptyToSizeOf(Surface& dst, const Surface& src);

/// Gives a surface an inner size through its outer one, so that its border stays.
void setClientSize(Surface& surface, int width, int height);

} // namespace ovrano
