#pragma once

#include "platform/dialogs.h"

#include <QList>
#include <QTest>

#include <optional>

namespace ovrano {

/// Answers the program's dialogs from queues and keeps what was asked.
///
/// A dialog that comes up without an answer waiting for it fails the running test and is cancelled; answers
/// that nobody asked for fail it when the object goes out of scope.
///
///     AnsweringDialogs dialogs;
///     dialogs.answer(Answer::Yes);                 // the next message box
///     dialogs.chooseSave("/tmp/x/photo.png", 2);   // the next save dialog, rows of the list from 1
///     ...
///     QCOMPARE(dialogs.messages.at(0).title, "Image modifiée");
class AnsweringDialogs : public Dialogs {
public:
    AnsweringDialogs() = default;
    Q_DISABLE_COPY_MOVE(AnsweringDialogs)
    ~AnsweringDialogs() override {
        if (pending() > 0 && !QTest::currentTestFailed())
            fail(QStringLiteral("answers were prepared for dialogs that never came up"));
    }

    // What the user will do, in the order in which the dialogs of each kind come up.
    void answer(Answer reply) { m_answers.append(reply); }
    void type(const QString& text) { m_inputs.append(text); }
    /// `filterIndex` counts the rows of the type list from 1, as CommonDialog does.
    void chooseOpen(const QString& path, int filterIndex = 1) { m_opens.append(choice(path, filterIndex)); }
    void chooseSave(const QString& path, int filterIndex) { m_saves.append(choice(path, filterIndex)); }
    void pickColour(Colour colour) { m_colours.append(std::optional<Colour>(colour)); }
    void cancelInput() { type(QString()); }
    void cancelOpen() { m_opens.append(std::nullopt); }
    void cancelSave() { m_saves.append(std::nullopt); }
    void cancelColour() { m_colours.append(std::nullopt); }

    /// How many answers are still waiting.
    qsizetype pending() const {
        return m_answers.size() + m_inputs.size() + m_opens.size() + m_saves.size() + m_colours.size();
    }

    // What the program asked, oldest first.
    QList<MessageBox> messages;
    QList<InputBox> inputs;
    QList<FileRequest> opens;
    QList<FileRequest> saves;
    QList<Colour> colours; // the colours proposed

    Answer messageBox(const MessageBox& box) override {
        messages.append(box);
        return next(m_answers, box.buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel, box.text);
    }
    QString inputBox(const InputBox& box) override {
        inputs.append(box);
        return next(m_inputs, QString(), box.prompt);
    }
    std::optional<FileChoice> openFile(const FileRequest& request) override {
        opens.append(request);
        return next(m_opens, std::optional<FileChoice>(), request.title);
    }
    std::optional<FileChoice> saveFile(const FileRequest& request) override {
        saves.append(request);
        return next(m_saves, std::optional<FileChoice>(), request.title);
    }
    std::optional<Colour> chooseColour(Colour initial) override {
        colours.append(initial);
        return next(m_colours, std::optional<Colour>(), QStringLiteral("colour dialog"));
    }

private:
    static FileChoice choice(const QString& path, int filterIndex) { return {path, filterIndex - 1}; }

    static void fail(const QString& message) { QTest::qFail(qPrintable(message), __FILE__, __LINE__); }

    template<typename Reply>
    static Reply next(QList<Reply>& queue, const Reply& otherwise, const QString& asked) {
        if (!queue.isEmpty())
            return queue.takeFirst();
        fail(QStringLiteral("no answer was prepared for: ") + asked);
        return otherwise;
    }

    QList<Answer> m_answers;
    QStringList m_inputs;
    QList<std::optional<FileChoice>> m_opens;
    QList<std::optional<FileChoice>> m_saves;
    QList<std::optional<Colour>> m_colours;
};

} // namespace ovrano
