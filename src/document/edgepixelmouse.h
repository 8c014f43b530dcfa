#pragma once

#include <QMouseEvent>
#include <QObject>
#include <QWidget>

namespace ovrano {

/// Gives the picture the mouse on its own last pixels, where the toolkit gives it to the viewport: on the
/// outer half of the last column and row where the screen has several pixels to one of the picture, and, from
/// Qt 6.7 on, anywhere on a picture that is one pixel wide or high, whose edge could not be taken hold of
/// again.
class EdgePixelMouse : public QObject {
    Q_OBJECT

public:
    /// `picture` is a child of `viewport`.
    EdgePixelMouse(QWidget& viewport, QWidget& picture, QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool isOnPicture(const QMouseEvent& event) const;
    QMouseEvent forPicture(const QMouseEvent& event) const;
    void pass(const QMouseEvent& event);

    QWidget& m_viewport;
    QWidget& m_picture;
    bool m_pressed = false; // on the picture, and not yet released
};

} // namespace ovrano
