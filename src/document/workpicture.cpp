#include "document/workpicture.h"

#include "platform/errorreporter.h"
#include "platform/numbers.h"

#include <QFileInfo>
#include <QScopeGuard>

namespace ovrano {

WorkPicture::WorkPicture(Dialogs& dialogs, QObject* parent)
    : QObject(parent)
    , picDisp(QStringLiteral("picDisp"), InitialSize, this)
    , picUndo(QStringLiteral("picUndo"), QSize(0, 0), this)
    , picSnap(QStringLiteral("picSnap"), QSize(0, 0), this)
    , picAuto(QStringLiteral("picAuto"), QSize(0, 0), this)
    , picTemp(QStringLiteral("picTemp"), QSize(0, 0), this)
    , picRegion(QStringLiteral("picRegion"), QSize(0, 0), this)
    , picMask(QStringLiteral("picMask"), QSize(0, 0), this)
    , m_dialogs(dialogs) {}

void WorkPicture::copyWhole(const Surface& src, Surface& dst) {
    if (src.innerSize() == dst.innerSize()) { // all of it is replaced
        dst.setPicture(src.Image());
        return;
    }
    dst.setPicture(Raster());
    dst.copyFrom(src, QRect(QPoint(0, 0), src.innerSize()), QPoint(0, 0));
    dst.commit();
}

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
    auto unchanged = qScopeGuard([this, before = picUndo.contents()] { picUndo.putBack(before); });
    if (picDisp.innerSize() != picUndo.innerSize())
        emptyToSizeOf(picUndo, picDisp);
    BitbltPic(picDisp, picUndo);
    unchanged.dismiss();
    UndoAvailable = true;
}

void WorkPicture::readImageSize() {
    ImageWidth = toInteger32(picDisp.ScaleWidth());
    ImageHeight = toInteger32(picDisp.ScaleHeight());
}

void WorkPicture::showImageSize(QChar widthLetter) {
    Q_EMIT imageSizeShown(QStringLiteral("%1=%2  H=%3").arg(widthLetter).arg(ImageWidth).arg(ImageHeight));
}

void WorkPicture::showFileName(const QString& text) {
    m_shownFileName = text;
    Q_EMIT fileNameShown(text);
}

QString WorkPicture::shownPath() const {
    return QFileInfo(m_shownFileName).isAbsolute() ? m_shownFileName : QString();
}

void takeSize(Surface& dst, const Surface& src) {
    dst.setWidth(src.Width());
    dst.setHeight(src.Height());
}

void emptyToSizeOf(Surface& dst, const Surface& src) {
    dst.setPicture(Raster());
    takeSize(dst, src);
}

void setClientSize(Surface& surface, int width, int height) {
    surface.setWidth(surface.Width() - surface.ScaleWidth() + width);
    surface.setHeight(surface.Height() - surface.ScaleHeight() + height);
}

} // namespace ovrano
