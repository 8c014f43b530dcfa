#include "wizards/handover.h"

#include "document/keptwork.h"

#include <QScopeGuard>

namespace ovrano {

Handover::Handover(WorkPicture& work, PictureView& view, QObject* parent)
    : QObject(parent)
    , m_work(work)
    , m_view(view) {}

void Handover::take(const Raster& picture) {
    auto unchanged = qScopeGuard([before = KeptWork(m_work)]() mutable { before.putBack(); });
    m_work.picDisp.setInnerSize(picture.size());
    m_work.picDisp.setPicture(picture);
    takeSize(m_work.picSnap, m_work.picDisp);
    m_work.picMask.setWidth(m_work.picDisp.Width());
    m_work.picMask.setHeight(m_work.picDisp.Width()); // a square, on purpose
    unchanged.dismiss();
}

void Handover::present() {
    m_view.scrollHome();
    m_view.fitToPicture();
    Q_EMIT pickerReleased();
    Q_EMIT backgroundColourLocked();
    Q_EMIT pictureReplaced();
}

} // namespace ovrano
