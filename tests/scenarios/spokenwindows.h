#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace ovrano::testing {

/// What a window tells a screen reader when it has just opened.
struct SpokenWindow {
    const char* called; // among the tests
    QString title;
    QString menu;         // the one that it is opened from; none for the main window
    QString keys;         // the letters of that menu and of its entry
    QStringList controls; // role and title of what can be used, in the order of the Tab key
    QStringList colours;  // the boxes that show a colour, and how it is told
    QString status;       // the picture's size, where it is shown
};

/// The main window first.
std::vector<SpokenWindow> spokenWindows();

} // namespace ovrano::testing
