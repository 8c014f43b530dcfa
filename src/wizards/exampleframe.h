#pragma once

#include "platform/picturebox.h"
#include "platform/surface.h"

#include <QFrame>

namespace ovrano {

/// A frame that a picture fills: the surface is always as large as the frame's inside, in pixels, so that
/// enlarging the window enlarges the picture.
class ExampleFrame : public QFrame {
    Q_OBJECT

public:
    /// The surface's size is the one that the frame asks for.
    ExampleFrame(const QString& name, Surface& surface, QWidget* parent = nullptr);

    PictureBox* const picture;

    QSize sizeHint() const override { return m_wanted; }
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The surface has another size now.
    void pictureResized(QSize size);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Surface& m_surface;
    QSize m_wanted; // with the frame
};

} // namespace ovrano
