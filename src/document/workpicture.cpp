#include "document/workpicture.h"

#include "platform/errorreporter.h"
#include "platform/numbers.h"

#include <new>

namespace ovrano {

namespace {

void copyWhole(const Surface& src, Surface& dst) {
    dst.setPicture(Raster());
    dst.copyFrom(src, QRect(QPoint(0, 0), src.innerSize()), QPoint(0, 0));
    dst.commit();
}

} // namespace

WorkPicture::WorkPicture(Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , picDisp(QStringLiteral("picDisp"), InitialSize)
    , picUndo(QStringLiteral("picUndo"))
    , picSnap(QStringLiteral("picSnap"))
    , picAuto(QStringLiteral("picAuto"))
    , picTemp(QStringLiteral("picTemp"))
    , picRegion(QStringLiteral("picRegion"))
    , picMask(QStringLiteral("picMask"))
    , m_dialogs(dialogs) {}

bool WorkPicture::BitbltPic(const Surface& src, Surface& dst) {
    bool copied = false;
    trapErrors(m_dialogs, QStringLiteral("BitbltPic"), [&] {
        copyWhole(src, dst);
        copied = true;
    });
    return copied;
}

void WorkPicture::TakeUndoSnapshot() {
    picDisp.Refresh();
    if (picDisp.innerSize() != picUndo.innerSize()) {
        picUndo.setPicture(Raster());
        takeSize(picUndo, picDisp);
    }
    BitbltPic(picDisp, picUndo);
    UndoAvailable = true;
}

void WorkPicture::readImageSize() {
    ImageWidth = toInteger32(picDisp.ScaleWidth());
    ImageHeight = toInteger32(picDisp.ScaleHeight());
}

void WorkPicture::showImageSize(QChar widthLetter) {
    Q_EMIT imageSizeShown(QStringLiteral("%1=%2  H=%3").arg(widthLetter).arg(ImageWidth).arg(ImageHeight));
}

void takeSize(Surface& dst, const Surface& src) {
    dst.setWidth(src.Width());
    dst.setHeight(src.Height());
}

void setClientSize(Surface& surface, int width, int height) {
    surface.setWidth(surface.Width() - surface.ScaleWidth() + width);
    surface.setHeight(surface.Height() - surface.ScaleHeight() + height);
}

} // namespace ovrano
