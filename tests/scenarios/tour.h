#pragma once

#include "app/mainwindow.h"
#include "support/user.h"

#include <QDir>
#include <QRect>

namespace ovrano::testing {

/// The typical job, done by somebody at the screen: opens a photo, writes a text in three dimensions on it,
/// puts it into place and saves the picture in three formats. Leaves a picture of the screen after each step
/// and says a line about every file.
class Tour {
public:
    /// What is written, and the colour that is chosen for it.
    static constexpr QSize PhotoSize = QSize(1600, 1067);
    static constexpr Colour TextColour = rgb(0xC8, 0x32, 0x1E);
    static constexpr int Depth = 6; // pixels

    /// In the program's thread; the folder is made and emptied of an earlier tour. The pictures of the screen
    /// are reduced to a width in pixels, or left as they are where that is 0.
    Tour(MainWindow& window, const QDir& folder, int width);

    /// In the user's thread, from the start of the program to its end.
    void play();

    QString photoPath() const { return m_folder.filePath(QStringLiteral("photo.jpg")); }
    QString balloonPath() const { return m_folder.filePath(QStringLiteral("ballon.bmp")); }
    QString resultPath(const QString& suffix) const {
        return m_folder.filePath(QStringLiteral("porquerolles.") + suffix);
    }
    /// Where the text was put, in pixels of the picture; known after play().
    QRect placed() const { return m_placed; }

private:
    void makePictures();
    void open();
    void write();
    void chooseColour();
    void choosePlacement();
    void create();
    void undoAndCreateAgain();
    void drag();
    void drop();
    void saveAs(const std::function<void()>& askForIt, const QString& type, const QString& suffix,
                const QString& explanation);
    void saveAll();
    void moveZone();
    void pasteBalloon();
    void composeInTwoColours();
    void layInACircle();
    void quit();

    void answerFileDialog(const QString& path);
    void waitForLiftedBlock(bool lifted);
    QRect block() const;
    QPoint onScreen(QPoint picturePoint) const;
    void show(const QString& name, const QString& explanation);

    MainWindow& m_window;
    QDir m_folder;
    int m_width;
    User m_user;
    QRect m_placed;
    int m_step = 0;
};

/// Says one line about a file on the standard output.
void say(const QString& path, const QString& explanation);

} // namespace ovrano::testing
