#pragma once

#include "platform/picturebox.h"
#include "platform/surface.h"

#include <QFrame>

namespace ovrano {

/// A frame around a picture that grows and shrinks with it, in pixels: enlarging the window enlarges the
/// picture by as much.
///
/// At first the picture has the size that it comes with. In a larger frame it is centred, also later on; in a
/// smaller one it is cut.
class ExampleFrame : public QFrame {
    Q_OBJECT

public:
    /// The surface's size is the one that the frame asks for. The surface outlives the frame.
    ExampleFrame(const QString& name, Surface& surface, QWidget* parent = nullptr);

    PictureBox* const picture;

    QSize sizeHint() const override { return m_first + borders(); }
    QSize minimumSizeHint() const override;

    /// The window has its first size: every further change of the frame's size is one of the picture's.
    void settle();

Q_SIGNALS:
    /// The surface has another size now.
    void pictureResized(QSize size);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize borders() const { return QSize(2 * frameWidth(), 2 * frameWidth()); }
    /// The room for a picture, without the frame.
    QSize inside() const { return size() - borders(); }

    Surface& m_surface;
    const QSize m_first; // the size that the picture comes with
    QSize m_beside;      // how much more room there is than picture; known once settled
    bool m_settled = false;
};

} // namespace ovrano
