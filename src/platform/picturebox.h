#pragma once

#include "platform/screen.h"
#include "platform/surface.h"

#include <QWidget>

namespace ovrano {

/// Shows a surface: one picture pixel is one logical pixel, the widget is as large as the surface. Only
/// what is visible and changed is painted. Every press is followed by a release, also when a dialog that
/// opened in between took the real one. Mouse positions are whole picture pixels and may lie outside
/// while a button is held.
class PictureBox : public QWidget {
    Q_OBJECT

public:
    /// The widget takes the surface's name.
    explicit PictureBox(Surface& surface, QWidget* parent = nullptr);

    Surface& surface() const { return m_surface; }

    MousePointer pointer() const { return m_pointer; }
    void setPointer(MousePointer pointer);

    // What a mouse would do, for those who have none.
    void pointAt(QPoint pixel) { Q_EMIT mouseMove(pixel); }
    void pressAt(QPoint pixel) { Q_EMIT mouseDown(Qt::LeftButton, pixel); }
    void releaseAt(QPoint pixel) { Q_EMIT mouseUp(Qt::LeftButton, pixel); }

Q_SIGNALS:
    void mouseDown(Qt::MouseButton button, QPoint at);
    void mouseMove(QPoint at);
    void mouseUp(Qt::MouseButton button, QPoint at);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    Surface& m_surface;
    MousePointer m_pointer = MousePointer::Default;
    Qt::MouseButton m_held = Qt::NoButton; // announced as pressed and not yet as released
};

/// The pixel of a picture's widget under the pointer; it may lie outside.
QPoint pixelUnderPointer(const QWidget& box, const QMouseEvent& event);

} // namespace ovrano
