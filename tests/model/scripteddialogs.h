#pragma once

#include "platform/dialogs.h"

#include <QStringList>

namespace ovrano::model {

/// Answers whatever a step brings up, and keeps what was asked.
class ScriptedDialogs : public Dialogs {
public:
    // What the user will do.
    Answer reply = Answer::No;
    std::optional<QString> openPath;
    std::optional<QString> savePath;
    int saveRow = 1; // of the type list, from 1
    std::optional<Colour> colour;

    // What was asked.
    QStringList messages;
    QString proposedName; // by the last save dialog

    Answer messageBox(const MessageBox& box) override {
        messages.append(box.text);
        return box.buttons == Buttons::Ok ? Answer::Ok : reply;
    }
    QString inputBox(const InputBox& box) override {
        messages.append(box.prompt); // no step asks for a text
        return {};
    }
    std::optional<FileChoice> openFile(const FileRequest&) override { return choice(openPath, 1); }
    std::optional<FileChoice> saveFile(const FileRequest& request) override {
        proposedName = request.fileName;
        return choice(savePath, saveRow);
    }
    std::optional<Colour> chooseColour(Colour) override { return colour; }

private:
    static std::optional<FileChoice> choice(const std::optional<QString>& path, int row) {
        return path ? std::optional(FileChoice{*path, row - 1}) : std::nullopt;
    }
};

} // namespace ovrano::model
