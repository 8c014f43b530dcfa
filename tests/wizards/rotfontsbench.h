#pragma once

#include "support/answeringdialogs.h"
#include "wizards/rotfonts.h"
#include "wizards/roundtools.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace ovrano {

/// A dialog over a main window's picture and view, with a folder of its own as the program's.
struct RotFontsBench {
    AnsweringDialogs dialogs;
    QTemporaryDir folder;
    WorkPicture work{dialogs};
    QWidget window;
    PictureView view{work, &window};
    Handover handover{work, view};
    WizardMemory memory;
    RotFonts dialog{handover, memory, dialogs, folder.path()};

    RotFontsBench() { window.resize(400, 300); }

    Surface& preview() { return dialog.Picture1; }
    bool isBlank() { return ovrano::isBlank(preview().Image(), preview().BackColor()); }

    /// Whether an action draws the preview, be it with the same settings as before.
    template<typename Action>
    bool draws(Action&& action) {
        preview().Line(QPointF(0, 0), QPointF(0, 0), Mark, BoxStyle::Filled); // gone after a drawing
        action();
        return preview().Point(0, 0) != Mark;
    }
    static constexpr Colour Mark = rgb(9, 8, 7);

    void open() {
        dialog.show();
        dialog.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }

    /// Makes the window larger, and the preview with it.
    void enlarge(QSize by) {
        const QSize wanted = preview().innerSize() + by;
        dialog.resize(dialog.size() + by);
        QTRY_COMPARE(preview().innerSize(), wanted);
    }
};

} // namespace ovrano
