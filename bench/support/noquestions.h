#pragma once

#include "platform/dialogs.h"

namespace ovrano::bench {

/// Answers the dialogs of a program that nobody sits at: file dialogs with a prepared path, questions with
/// No; what is reported ends the benchmark, which would measure nothing.
class NoQuestions : public Dialogs {
public:
    FileChoice file; // the type's row counts from 0

    Answer messageBox(const MessageBox& box) override {
        if (box.buttons == Buttons::Ok)
            qFatal("the program reports: %s", qPrintable(box.text));
        return Answer::No;
    }
    QString inputBox(const InputBox&) override { return QString(); }
    std::optional<FileChoice> openFile(const FileRequest&) override { return file; }
    std::optional<FileChoice> saveFile(const FileRequest&) override { return file; }
    std::optional<Colour> chooseColour(Colour) override { return std::nullopt; }
};

} // namespace ovrano::bench
