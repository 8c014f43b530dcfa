#pragma once

#include "platform/raster.h"

#include <QMimeData>

namespace ovrano {

/// A picture on the clipboard: its pixels are shared until another program asks for them in one of the
/// formats offered, and encoded then.
class PictureMimeData : public QMimeData {
    Q_OBJECT

public:
    explicit PictureMimeData(const Raster& picture)
        : m_picture(picture) {}

    const Raster& picture() const { return m_picture; }

    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& type, QMetaType preferred) const override;

private:
    Raster m_picture;
};

} // namespace ovrano
