#include "model/driver.h"

#include "model/testpictures.h"

#include <QApplication>
#include <QBackingStore>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTest>

#include <array>
#include <cstdlib>

namespace ovrano::model {

namespace {

constexpr int SmallestLetters = 6; // points; the stamps are to fit small pictures

constexpr std::array<const char*, 4> MenuNames{"mnuFile", "mnuEdit", "mnuTools", "mnuText"};
constexpr std::array<const char*, 3> Texts{"i", "Ab", "Texte"};

Colour toColour(Rgb pixel) {
    return rgb(static_cast<int>(pixel >> 16), static_cast<int>(pixel >> 8 & 0xFF),
               static_cast<int>(pixel & 0xFF));
}

} // namespace

Driver::Driver()
    : m_window(m_dialogs) {
    writeTestPictures(folder());
    QGuiApplication::clipboard()->clear();
    m_window.show();
    m_window.setWindowState(Qt::WindowNoState); // so that the window's size can be chosen
    m_window.resize(m_window.minimumSize());
    QCoreApplication::processEvents();
    QFrame& viewport = *m_window.view().picZ;
    viewport.resize(Viewport + viewport.size() - m_window.view().viewportSize());
    m_window.view().setScrollMax();
    find<QComboBox>("txtFontSize")->setEditText(QString::number(SmallestLetters));
    m_window.activateWindow();
    QCursor::setPos(m_window.mapToGlobal(QPoint(0, 0))); // away from the picture
    QCoreApplication::processEvents();
    m_window.windowHandle()->installEventFilter(this);
    QCoreApplication::processEvents();
}

/// When keys move the pointer the system may tell or not tell that it went, which no test can count on.
bool Driver::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::MouseMove || QObject::eventFilter(watched, event);
}

void Driver::perform(const Step& step) {
    m_dialogs.messages.clear();
    m_dialogs.reply = step.reply;
    m_window.activateWindow(); // without a window manager nobody gives that back after a dialog
    QCoreApplication::processEvents();
    if (isOnPicture(step))
        m_window.view().picDisp->setFocus();
    else
        m_window.view().picDisp->clearFocus();
    if (step.kind <= Kind::Background)
        performFile(step);
    else if (step.kind <= Kind::Enter)
        performTool(step);
    else
        performEdit(step);
    QCoreApplication::processEvents();
}

void Driver::performFile(const Step& step) {
    const std::vector<int>& numbers = step.numbers;
    switch (step.kind) {
    case Kind::Open:
        m_dialogs.openPath = path(numbers[0]);
        offerSave(numbers[1]);
        return choose("mnuFile", "mnuFileOpen");
    case Kind::New:
    case Kind::NewCancelled:
    case Kind::NewClosed:
        return startNew(step);
    case Kind::Save:
        offerSave(numbers[0], numbers[1]);
        return choose("mnuFile", "mnuFileSave");
    case Kind::Drop:
        offerSave(numbers[1]);
        return drop(numbers[0]);
    case Kind::TextDialog:
        return textDialog(numbers[0], numbers[1] == 1);
    case Kind::Close:
        m_dialogs.reply = Answer::Cancel;
        m_window.close();
        return;
    case Kind::Undo:
        return undo(numbers[0]);
    default:
        offerColour(numbers[0]);
        click("Command2");
    }
}

void Driver::performTool(const Step& step) {
    switch (step.kind) {
    case Kind::ZoneButton:
        return click("imgRegion");
    case Kind::ZoneEntry:
        return choose("mnuTools", "mnuToolsRegion");
    case Kind::PickerButton:
        return click("imgColorPicker");
    case Kind::PickerEntry:
        return choose("mnuTools", "Mnu_Pipette");
    case Kind::Gesture:
        return gesture(step.numbers);
    case Kind::Space:
        return QTest::keyClick(m_window.view().picDisp, Qt::Key_Space);
    case Kind::Arrow:
        return pressArrow(step.numbers[0], step.numbers[1]);
    default:
        QTest::keyClick(m_window.view().picDisp, Qt::Key_Return);
    }
}

void Driver::performEdit(const Step& step) {
    const auto number = [&](std::size_t i) { return step.numbers[i]; };
    switch (step.kind) {
    case Kind::Copy:
        return number(0) == 1 ? pressKey(Qt::Key_C) : choose("mnuEdit", "mnuEditCopy");
    case Kind::Cut:
        return number(0) == 1 ? pressKey(Qt::Key_X) : choose("mnuEdit", "mnuEditCut");
    case Kind::Paste:
        if (number(0) == 2)
            return pressKey(Qt::Key_V);
        return choose("mnuEdit", number(0) == 1 ? "mnuEditPasteTransparent" : "mnuEditPaste");
    case Kind::PasteFile:
        m_dialogs.openPath = path(number(0));
        return choose("mnuEdit", number(1) == 1 ? "mnuEditPasteFromFileTransparent" : "mnuEditPasteFromFile");
    case Kind::PasteNew:
        return choose("mnuEdit", "Mnu_ColleNouvIMG");
    case Kind::ClearClipboard:
        return choose("mnuEdit", "mnuEditClearClipboard");
    case Kind::ForeignText:
        return QGuiApplication::clipboard()->setText(QStringLiteral("un texte"));
    case Kind::ForeignPicture:
        return QGuiApplication::clipboard()->setImage(toImage(testPicture(number(0))));
    case Kind::Stamp:
        return stampText(number(0));
    case Kind::OpenMenu:
        Q_EMIT find<QMenu>(MenuNames.at(static_cast<std::size_t>(number(0))))->aboutToShow();
        return;
    case Kind::OneColourText:
        return choose("mnuText", "mnuTextWrite(0)");
    case Kind::Push:
        return push(number(0), number(1));
    case Kind::TextColour:
        offerColour(number(0));
        return click("cmdTextColor");
    default:
        (number(0) == 0 ? m_window.view().HScroll1 : m_window.view().VScroll1)->setValue(number(1));
    }
}

void Driver::choose(const char* menu, const char* entry) {
    Q_EMIT find<QMenu>(menu)->aboutToShow();
    find<QAction>(entry)->trigger(); // nothing when it is disabled
}

void Driver::click(const char* button) {
    find<QAbstractButton>(button)->click(); // a press of the mouse would go by right after a long paste
}

template<typename Form>
void Driver::whenOpen(QTimer& timer, std::function<void(Form&)> act) {
    QObject::connect(&timer, &QTimer::timeout, &timer, [&timer, act = std::move(act)] {
        auto* form = qobject_cast<Form*>(QApplication::activeModalWidget());
        if (!form)
            return;
        timer.stop();
        act(*form);
    });
    timer.start(0);
}

void Driver::startNew(const Step& step) {
    offerSave(step.numbers.back());
    QTimer user;
    whenOpen<FrmNouv3DText>(user, [&](FrmNouv3DText& form) {
        if (step.kind == Kind::NewClosed)
            form.close();
        else if (step.kind == Kind::NewCancelled)
            form.Command3->click();
        else
            accept(form, step.numbers);
    });
    choose("mnuFile", "mnuFileNew");
}

void Driver::accept(FrmNouv3DText& form, const std::vector<int>& numbers) {
    form.Text1->setText(QString::number(numbers[0]));
    form.Text2->setText(QString::number(numbers[1]));
    offerColour(numbers[2]);
    if (m_dialogs.colour)
        form.Command1->click();
    form.Command2->click();
}

void Driver::textDialog(int which, bool applied) {
    QTimer user;
    whenOpen<QDialog>(user, [&](QDialog& form) {
        if (applied)
            form.findChild<QAbstractButton*>(QStringLiteral("Command1"))->click();
        else
            form.reject();
    });
    choose("mnuText", which == 1 ? "mnuTextWrite(1)" : "mnuTextWrite(2)");
}

void Driver::drop(int file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(*path(file))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &event);
    QCoreApplication::processEvents(); // it is opened when the other program has its pointer back
}

void Driver::undo(int way) {
    if (way == 0)
        choose("mnuEdit", "mnuEditUndo");
    else if (way == 1)
        click("CmdAnnul");
    else
        pressKey(Qt::Key_Z);
}

void Driver::pressKey(Qt::Key key) {
    m_window.activateWindow(); // without a window manager nobody gives that back after a dialog
    QCoreApplication::processEvents();
    QTest::keyClick(m_window.view().picDisp, key, Qt::ControlModifier);
}

void Driver::gesture(const std::vector<int>& numbers) {
    const Qt::MouseButton button = numbers[0] == 1 ? Qt::LeftButton : Qt::RightButton;
    const Qt::MouseButton other = numbers[0] == 1 ? Qt::RightButton : Qt::LeftButton;
    QPoint at(numbers[2], numbers[3]);
    // Twice: where the first one ends or continues a gesture, the picture changes under the pointer.
    sendMouse(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
    sendMouse(QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
    sendMouse(QEvent::MouseButtonPress, at, button, button);
    if (numbers[1] == DoubleClick) {
        sendMouse(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
        sendMouse(QEvent::MouseButtonDblClick, at, button, button);
    }
    for (std::size_t i = 4; i < numbers.size(); i += 2) {
        at = QPoint(numbers[i], numbers[i + 1]);
        sendMouse(QEvent::MouseMove, at, Qt::NoButton, button);
        if (i == 4 && numbers[1] == SecondButton) {
            sendMouse(QEvent::MouseButtonPress, at, other, button | other);
            sendMouse(QEvent::MouseButtonRelease, at, other, button);
        }
    }
    if (numbers[1] != LostRelease)
        sendMouse(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void Driver::sendMouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
    // Sent to the picture itself: the pointer of the screen could not go where an edge is dragged to.
    PictureBox* picture = m_window.view().picDisp;
    QMouseEvent event(type, at, picture->mapTo(&m_window, at), picture->mapToGlobal(at), button, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(picture, &event);
}

void Driver::push(int x, int y) {
    PictureBox* picture = m_window.view().picDisp;
    const QPoint start(100, 100); // on the screen: the picture goes away under the pointer
    const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, QPointF(1, 1), at, button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(picture, &event);
    };
    send(QEvent::MouseButtonPress, start, Qt::MiddleButton, Qt::MiddleButton);
    send(QEvent::MouseMove, start + QPoint(x, y), Qt::NoButton, Qt::MiddleButton);
    send(QEvent::MouseButtonRelease, start + QPoint(x, y), Qt::MiddleButton, Qt::NoButton);
}

void Driver::pressArrow(int x, int y) {
    const Qt::Key key = x > 0 ? Qt::Key_Right : x < 0 ? Qt::Key_Left : y > 0 ? Qt::Key_Down : Qt::Key_Up;
    const bool far = std::abs(x + y) > 1;
    QTest::keyClick(m_window.view().picDisp, key, far ? Qt::ShiftModifier : Qt::NoModifier);
}

void Driver::stampText(int text) {
    find<QLineEdit>("txbWriteText")->setText(QLatin1String(Texts.at(static_cast<std::size_t>(text))));
    click("cmd1Color3DProceed");
}

Pixels Driver::seenAfter(const Step& step) {
    if (step.kind == Kind::Stamp)
        return toPixels(m_window.work().picRegion.Image());
    if (step.kind == Kind::TextDialog)
        return toPixels(m_window.work().picDisp.Image());
    const QString file = step.kind == Kind::Save ? m_window.work().shownPath() : QString();
    return file.isEmpty() ? Pixels() : toPixels(QImage(file));
}

Pixels Driver::onScreen() {
    const PictureView& view = m_window.view();
    const QRect picture(view.picDisp->mapTo(&m_window, QPoint(0, 0)), view.picDisp->size());
    const QRect viewport(view.picZ->mapTo(&m_window, view.picZ->contentsRect().topLeft()), Viewport);
    const auto* painted = dynamic_cast<QImage*>(m_window.backingStore()->paintDevice());
    if (!painted)
        qFatal("what was painted cannot be read");
    const QRect visible = picture & viewport;
    return visible.isEmpty() ? Pixels() : toPixels(painted->copy(visible));
}

void Driver::offerSave(int name, int row) {
    m_dialogs.savePath = name == NoFile ? std::nullopt : std::optional(folder() + typedName(name));
    m_dialogs.saveRow = row;
}

std::optional<QString> Driver::path(int file) const {
    return file == NoFile ? std::nullopt : std::optional(folder() + fileName(file));
}

void Driver::offerColour(int colour) {
    m_dialogs.colour = colour < 0 ? std::nullopt : std::optional(toColour(colourAt(colour)));
}

} // namespace ovrano::model
