#pragma once

#include "support/answeringdialogs.h"
#include "text/stylepanel.h"

#include <QSignalSpy>

namespace ovrano {

/// A panel on a present picture and what it asks and announces.
struct StyleBench {
    AnsweringDialogs dialogs;
    WorkPicture work{dialogs};
    StylePanel panel{work, dialogs};
    QSignalSpy pickerReleased{&panel, &StylePanel::pickerReleased};
    QSignalSpy focusRequested{&panel, &StylePanel::pictureFocusRequested};

    StyleBench() { work.ImageLoaded = true; }
    QLineEdit* sizeEdit() const { return panel.txtFontSize->lineEdit(); }
    QString size() const { return panel.txtFontSize->currentText(); }
    QString lastMessage() const {
        return dialogs.messages.isEmpty() ? QString() : dialogs.messages.last().text;
    }
};

} // namespace ovrano
