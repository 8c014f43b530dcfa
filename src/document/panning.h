#pragma once

#include <QCursor>
#include <QObject>
#include <QPoint>
#include <QScrollBar>
#include <QWidget>

class QMouseEvent;

namespace ovrano {

/// Moves a picture under its viewport with the middle mouse button held, as if it were pushed by hand. The
/// middle button never reaches what is pushed.
class Panning : public QObject {
    Q_OBJECT

public:
    Panning(QWidget& viewport, QWidget& picture, QScrollBar& horizontal, QScrollBar& vertical,
            QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void showHand(bool shown);

    QWidget& m_picture;
    QScrollBar& m_horizontal;
    QScrollBar& m_vertical;
    QPoint m_hand;    // where the pointer was last, on the screen
    QCursor m_before; // what the picture's pointer was before the hand
    bool m_panning = false;
};

} // namespace ovrano
