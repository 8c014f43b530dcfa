#pragma once

#include "app/mainwindow.h"
#include "support/noquestions.h"

#include <QPoint>
#include <QString>

namespace ovrano::bench {

/// The whole program, driven from outside as a user's mouse does it.
class ProgramWindow {
public:
    /// Shown and painted.
    ProgramWindow();

    MainWindow& window() { return m_window; }

    /// By the menu's entry, to the first repaint.
    void open(const QString& path);
    /// A picture that comes from nowhere.
    void setPicture(const QImage& picture);

    /// The settings of the text to come: Liberation Sans, 72 points, depth 4, angle 30.
    void chooseText();
    void setText(const QString& text);
    /// Presses "Créer le texte 3D"; the text is there as a block and visible when this returns.
    void stamp();

    /// Takes the block that is lifted by its middle, or leaves it.
    void grab();
    void dragTo(QPoint point);
    void release();

    /// Paints what is to be painted and waits until the display has it.
    void showAll();

private:
    void sendMouse(QEvent::Type type, QPoint at);

    NoQuestions m_dialogs;
    MainWindow m_window;
    QPoint m_mouse;
};

} // namespace ovrano::bench
