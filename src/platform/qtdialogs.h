#pragma once

#include "platform/dialogs.h"

#include <QHash>

class QFileDialog;

namespace ovrano {

/// The toolkit's dialogs, native where the desktop has its own. Each kind of file dialog (told by its
/// title) remembers its folder while the program runs.
class QtDialogs : public Dialogs {
public:
    Answer messageBox(const MessageBox& box) override;
    QString inputBox(const InputBox& box) override;
    std::optional<FileChoice> openFile(const FileRequest& request) override;
    std::optional<FileChoice> saveFile(const FileRequest& request) override;
    std::optional<Colour> chooseColour(Colour initial) override;

private:
    void prepare(QFileDialog& dialog, const FileRequest& request) const;
    std::optional<FileChoice> run(QFileDialog& dialog, const FileRequest& request);
    bool mayReplace(const FileRequest& request, const FileChoice& choice);

    QHash<QString, QString> m_folders; // by dialog title
};

} // namespace ovrano
