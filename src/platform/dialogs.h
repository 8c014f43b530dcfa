#pragma once

#include "platform/colour.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace ovrano {

enum class Icon { None, Information, Question, Critical };
enum class Buttons { Ok, YesNoCancel };
enum class Answer { Ok, Yes, No, Cancel };

struct MessageBox {
    QString text;
    QString title; // empty: the program's name
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
};

struct InputBox {
    QString prompt;
    QString title;
    QString proposed;
};

/// One row of a file dialog's type list.
struct FileType {
    QString description;  // shown as it stands
    QStringList patterns; // "*.bmp"
};

struct FileRequest {
    QString title;
    QList<FileType> types;
    int typeIndex = 0; // the row chosen at first
    QString fileName;
    /// For saving: the file that a typed path and row will really be written to. Overwriting is confirmed
    /// for that one. Without it the typed path is meant.
    std::function<QString(const QString& path, int typeIndex)> target;
};

struct FileChoice {
    QString path;
    int typeIndex = 0;
};

/// Everything the program asks a user in a window of its own. One implementation shows the platform's
/// dialogs; tests put in another that answers.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual Answer messageBox(const MessageBox& box) = 0;
    /// The empty text also when cancelled.
    virtual QString inputBox(const InputBox& box) = 0;
    /// Nothing when cancelled. The file exists.
    virtual std::optional<FileChoice> openFile(const FileRequest& request) = 0;
    /// Nothing when cancelled. Asks before an existing file is chosen.
    virtual std::optional<FileChoice> saveFile(const FileRequest& request) = 0;
    /// Nothing when cancelled.
    virtual std::optional<Colour> chooseColour(Colour initial) = 0;
};

/// A failed check of what the user entered: title "Erreur", OK, the information icon.
void showInputError(Dialogs& dialogs, const QString& text);

} // namespace ovrano
