#pragma once

#include "app/mainwindow.h"
#include "model/pixels.h"
#include "model/scripteddialogs.h"
#include "model/step.h"

#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace ovrano::model {

/// The real window, in which a user does steps. Its viewport is made small, so that small pictures scroll.
class Driver : public QObject {
public:
    static constexpr QSize Viewport = QSize(90, 70);

    Driver();
    Q_DISABLE_COPY_MOVE(Driver)

    void perform(const Step& step);

    /// Where the files are, with the last slash.
    QString folder() const { return m_folder.path() + QLatin1Char('/'); }
    MainWindow& window() { return m_window; }
    const ScriptedDialogs& dialogs() const { return m_dialogs; }
    void forgetMessages() { m_dialogs.messages.clear(); }
    /// What only the program can tell after a step: a text as it was drawn, a file of another format.
    Pixels seenAfter(const Step& step);

    /// What the viewport shows on the screen of the picture.
    Pixels onScreen();

    template<typename Control>
    Control* find(const char* name) {
        auto* control = m_window.findChild<Control*>(QLatin1String(name));
        if (!control)
            qFatal("%s is missing", name);
        return control;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void performFile(const Step& step);
    void performTool(const Step& step);
    void performEdit(const Step& step);
    void choose(const char* menu, const char* entry);
    void click(const char* button);
    void startNew(const Step& step);
    void accept(FrmNouv3DText& form, const std::vector<int>& numbers);
    void undo(int way);
    void gesture(const std::vector<int>& numbers);
    void sendMouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held);
    void pressKey(Qt::Key key);
    void pressArrow(int x, int y);
    void stampText(int text);
    std::optional<QString> path(int file) const;
    void offerSave(int name, int row = 1);
    void drop(int file);
    void textDialog(int which, bool applied);
    void push(int x, int y);
    /// Runs an act as soon as a dialog of a kind is open.
    template<typename Form>
    void whenOpen(QTimer& timer, std::function<void(Form&)> act);
    void offerColour(int colour);

    QTemporaryDir m_folder;
    ScriptedDialogs m_dialogs;
    MainWindow m_window;
};

} // namespace ovrano::model
