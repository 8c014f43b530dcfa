#include "app/programwindow.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QWindow>

namespace ovrano::bench {

namespace {

template<typename Part>
Part* partOf(MainWindow& window, const char* name) {
    auto* part = window.findChild<Part*>(QLatin1String(name));
    if (part == nullptr)
        qFatal("the window has no %s", name);
    return part;
}

/// Lets everything happen that is waiting to happen.
void settle() {
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

} // namespace

ProgramWindow::ProgramWindow()
    : m_window(m_dialogs) {
    m_window.show();
    while (!m_window.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
}

void ProgramWindow::open(const QString& path) {
    m_dialogs.file = {path, 0};
    partOf<QAction>(m_window, "mnuFileOpen")->trigger();
    showAll();
}

void ProgramWindow::setPicture(const QImage& picture) {
    WorkPicture& work = m_window.work();
    work.picDisp.setInnerSize(picture.size());
    work.picDisp.setPicture(Raster::fromImage(picture));
    m_window.view().fitToPicture();
    settle();
}

void ProgramWindow::chooseText() {
    partOf<QComboBox>(m_window, "cboFontName")->setCurrentText(QStringLiteral("Liberation Sans"));
    partOf<QComboBox>(m_window, "txtFontSize")->setCurrentText(QStringLiteral("72"));
    partOf<QComboBox>(m_window, "cboShadeThickness")->setCurrentText(QStringLiteral("4"));
    partOf<QScrollBar>(m_window, "HsbRotateAngle")->setValue(30);
    settle();
}

void ProgramWindow::setText(const QString& text) {
    partOf<QLineEdit>(m_window, "txbWriteText")->setText(text);
}

void ProgramWindow::stamp() {
    partOf<QPushButton>(m_window, "cmd1Color3DProceed")->click();
    showAll();
}

void ProgramWindow::grab() {
    const LiftedBlock& block = m_window.block();
    m_mouse = QPoint(int(block.SelX1 + block.SelX2) / 2, int(block.SelY1 + block.SelY2) / 2);
    sendMouse(QEvent::MouseButtonPress, m_mouse);
}

void ProgramWindow::dragTo(QPoint point) {
    m_mouse = point;
    sendMouse(QEvent::MouseMove, point);
    showAll();
}

void ProgramWindow::release() {
    sendMouse(QEvent::MouseButtonRelease, m_mouse);
    settle();
}

void ProgramWindow::sendMouse(QEvent::Type type, QPoint at) {
    PictureBox& box = *m_window.view().picDisp;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, box.mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &event);
}

void ProgramWindow::showAll() {
    // Not by the event loop, which waits some milliseconds so that several changes are painted at once.
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&m_window, &update);
    QGuiApplication::sync();
}

} // namespace ovrano::bench
