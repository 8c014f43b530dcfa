#pragma once

#include "app/mainwindow.h"
#include "support/answeringdialogs.h"
#include "support/guithread.h"
#include "support/inputerror.h"
#include "support/playuser.h"
#include "support/user.h"

#include <QLabel>
#include <QtTest>

namespace ovrano::testing {

inline constexpr Colour Red = rgb(255, 0, 0);
inline constexpr Colour Blue = rgb(0, 0, 255);

/// The window with a picture: blue, with a red box from (100, 80) to (149, 109).
struct Program {
    explicit Program(QSize picture = QSize(400, 300))
        : window(dialogs) {
        window.show();
        if (!QTest::qWaitForWindowActive(&window, 10'000))
            qFatal("the window is not activated");
        WorkPicture& work = window.work();
        work.picDisp.setInnerSize(picture);
        work.picDisp.Line(QPointF(0, 0), QPointF(picture.width(), picture.height()), Blue, BoxStyle::Filled);
        work.picDisp.Line(QPointF(100, 80), QPointF(149, 109), Red, BoxStyle::Filled);
        work.picDisp.commit();
        window.view().fitToPicture();
    }

    /// For scripts in which no dialog opens but what the prepared answers are for: they can run in the
    /// program's own thread.
    void play(const std::function<void()>& script) {
        try {
            user.waitForWindow(QStringLiteral("frmPicText0"));
            window.view().picDisp->setFocus(); // the text field keeps the keys of the clipboard to itself
            script();
        } catch (const InputError& error) {
            QTest::qFail(error.what(), __FILE__, __LINE__);
        }
    }

    /// The same for scripts that work dialogs of the program's own, which wait for their answer.
    void playBeside(const std::function<void()>& script) {
        try {
            playUser([&] {
                user.waitForWindow(QStringLiteral("frmPicText0"));
                script();
            });
        } catch (const InputError& error) {
            QTest::qFail(error.what(), __FILE__, __LINE__);
        }
    }

    /// Lets the moment pass in which a mouse press would still count as aimed at what was shown before a long
    /// command.
    static void react() {
        constexpr int Moment = 100; // milliseconds
        if (isGuiThread())
            QTest::qWait(Moment);
        else
            QThread::msleep(Moment);
    }

    /// A point of the picture on the screen.
    QPoint at(int x, int y) { return window.view().picDisp->mapToGlobal(QPoint(x, y)); }
    Colour pixel(int x, int y) { return window.work().picDisp.Picture().pixel(x, y); }
    QString label(const char* name) { return window.findChild<QLabel*>(QLatin1String(name))->text(); }
    bool isEnabled(const char* entry) {
        return window.findChild<QAction*>(QLatin1String(entry))->isEnabled();
    }

    AnsweringDialogs dialogs;
    MainWindow window;
    User user;
};

} // namespace ovrano::testing
