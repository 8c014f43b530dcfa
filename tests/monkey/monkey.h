#pragma once

#include "app/mainwindow.h"
#include "monkey/randomdialogs.h"
#include "monkey/watch.h"
#include "support/blindinput.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>
#include <vector>

namespace ovrano::monkey {

/// Plays with the real window without understanding anything: mouse, keys, wheel, sizes, themes, drops and
/// the clipboard by chance, also while the program is in the middle of a long command. Mouse and keys go
/// through the X server, so they wait as a user's do.
class Monkey : public QObject {
public:
    explicit Monkey(unsigned seed);
    ~Monkey() override;
    Q_DISABLE_COPY_MOVE(Monkey)

    /// Plays until as many acts are done. The window is reopened whenever it has been closed.
    void play(int acts);

    /// Leaves every dialog and menu and lets what has been sent arrive.
    void calmDown();
    /// Whether the program opens a picture that is dropped on it, in any of some tries (it may ask
    /// something).
    bool programStillWorks();

    const Watch& watch() const { return m_watch; }
    /// How many acts were done in the middle of a command.
    int duringCommands() const { return m_duringCommands; }
    int dialogsAnswered() const { return m_dialogs.answered(); }
    /// Files that the program made beside those that were saved.
    QStringList filesLeft() const;

private:
    struct Act {
        int weight;
        const char* name;
        void (Monkey::*run)();
    };
    static const std::vector<Act>& acts();

    void act();
    bool happens(int inHundred) { return m_chance.bounded(100) < inHundred; }
    void showWindow();
    QWidget* anyWidget();
    QPoint pointIn(QWidget& widget);

    void move();
    void click();
    void doubleClick();
    void drag();
    void turnWheel();
    void strikeKey();
    void typeText();
    void resizeWindow();
    void changeTheme();
    void dropFile();
    void fillClipboard();
    void closeWindow();
    void drop(const QString& path);

    QRandomGenerator m_chance;
    QTemporaryDir m_folder;
    RandomDialogs m_dialogs;
    Watch m_watch;
    testing::BlindInput m_hand;
    std::unique_ptr<MainWindow> m_window;
    QTimer m_tick;
    int m_left = 0; // acts
    int m_duringCommands = 0;
};

} // namespace ovrano::monkey
