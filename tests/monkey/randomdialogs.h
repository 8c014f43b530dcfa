#pragma once

#include "platform/dialogs.h"

#include <QRandomGenerator>

namespace ovrano::monkey {

/// Answers whatever is asked without reading it: anything that the dialog allows, with files of one folder.
class RandomDialogs : public Dialogs {
public:
    /// The folder's path has no slash at its end. The source of chance must outlive the dialogs.
    RandomDialogs(QRandomGenerator& chance, QString folder);

    Answer messageBox(const MessageBox& box) override;
    QString inputBox(const InputBox& box) override;
    std::optional<FileChoice> openFile(const FileRequest& request) override;
    std::optional<FileChoice> saveFile(const FileRequest& request) override;
    std::optional<Colour> chooseColour(Colour initial) override;

    /// How many have been answered.
    int answered() const { return m_answered; }

private:
    bool happens(int inHundred) { return m_chance.bounded(100) < inHundred; }
    template<typename Row>
    int rowOf(const QList<Row>& rows) {
        return m_chance.bounded(std::max(1, static_cast<int>(rows.size())));
    }

    QRandomGenerator& m_chance;
    const QString m_folder;
    int m_answered = 0;
};

/// A file of a folder.
QString anyFile(QRandomGenerator& chance, const QString& folder);

} // namespace ovrano::monkey
