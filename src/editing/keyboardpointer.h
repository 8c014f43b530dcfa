#pragma once

#include "document/pictureview.h"

#include <QKeyEvent>
#include <QObject>
#include <QPoint>

#include <optional>

namespace ovrano {

/// A mouse for those who have none: while the work picture has the keyboard, the arrows move the pointer over
/// it, and the space bar presses and releases the button. A lifted block gets the keys first.
class KeyboardPointer : public QObject {
    Q_OBJECT

public:
    explicit KeyboardPointer(PictureView& view, QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool obey(const QKeyEvent& press);
    void move(QPoint by);
    void pressOrRelease();
    void release();
    QPoint pointed() const;

    PictureView& m_view;
    QPoint m_at;    // in pixels of the picture; may be beside it
    QPoint m_aimed; // where that was on the screen; the view may have been scrolled since
    // Where the pointer came to on the screen; a mouse may have moved it since.
    std::optional<QPoint> m_left;
    bool m_pressed = false; // the space bar has pressed the button
};

} // namespace ovrano
