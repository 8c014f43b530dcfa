#pragma once

#include "platform/colour.h"
#include "platform/dialogs.h"

#include <QString>

#include <functional>
#include <optional>

namespace ovrano {

/// The file and colour dialogs as the handlers use them: properties are set, a Show… function is called,
/// properties hold the answer. With CancelError a cancelled dialog throws error::Cancelled; without it the
/// properties stay as they were.
class CommonDialog {
public:
    // Values of Flags. They say what a handler counts on; every dialog here behaves so by itself.
    static constexpr int SaveAskBeforeOverwriting = 2;
    static constexpr int ColourFullOpen = 2;
    static constexpr int ColourFullOpenWithPreset = 3;
    static constexpr int OpenFileMustExist = 4096;

    explicit CommonDialog(Dialogs& dialogs)
        : m_dialogs(dialogs) {}

    QString DialogTitle;
    /// "Description|*.a;*.b|Description|*.c|", a trailing bar allowed.
    QString Filter;
    int FilterIndex = 1; // from 1
    int Flags = 0;
    QString FileName;  // full path
    QString FileTitle; // its last part
    ovrano::Colour Color = Black;
    bool CancelError = false;
    /// The file that a typed path and FilterIndex will be written to, see FileRequest::target.
    std::function<QString(const QString& path, int filterIndex)> Target;

    void ShowOpen();
    /// ShowOpen() for an existing picture file, under the title that is set: no file proposed, cancelling
    /// throws.
    void ShowOpenPicture();
    void ShowSave();
    void ShowColor();
    /// ShowColor() starting from a colour, with the panel for own colours open; gives the chosen one.
    /// Cancelling throws.
    ovrano::Colour AskColour(ovrano::Colour current, int flags = ColourFullOpenWithPreset);

private:
    FileRequest request() const;
    void accept(const std::optional<FileChoice>& choice);

    Dialogs& m_dialogs;
};

} // namespace ovrano
