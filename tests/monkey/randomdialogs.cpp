#include "monkey/randomdialogs.h"

#include <QDir>

#include <utility>

namespace ovrano::monkey {

QString anyFile(QRandomGenerator& chance, const QString& folder) {
    const QStringList files = QDir(folder).entryList(QDir::Files | QDir::Hidden);
    return folder + QLatin1Char('/') + files.value(chance.bounded(std::max(1, int(files.size()))));
}

RandomDialogs::RandomDialogs(QRandomGenerator& chance, QString folder)
    : m_chance(chance)
    , m_folder(std::move(folder)) {}

Answer RandomDialogs::messageBox(const MessageBox& box) {
    ++m_answered;
    if (box.buttons == Buttons::Ok)
        return Answer::Ok;
    const QList<Answer> answers = {Answer::Yes, Answer::No, Answer::Cancel};
    return answers[m_chance.bounded(int(answers.size()))];
}

QString RandomDialogs::inputBox(const InputBox& box) {
    ++m_answered;
    const QStringList texts = {QString(),
                               box.proposed,
                               QStringLiteral("7"),
                               QStringLiteral("-1"),
                               QStringLiteral("99999999999999999999"),
                               QStringLiteral("été")};
    return texts[rowOf(texts)];
}

std::optional<FileChoice> RandomDialogs::openFile(const FileRequest& request) {
    ++m_answered;
    if (happens(15))
        return std::nullopt;
    return FileChoice{anyFile(m_chance, m_folder), rowOf(request.types)};
}

std::optional<FileChoice> RandomDialogs::saveFile(const FileRequest& request) {
    ++m_answered;
    if (happens(25))
        return std::nullopt;
    const QStringList names = {request.fileName,
                               QStringLiteral("Temp.bmp"),
                               QStringLiteral("sans point"),
                               QStringLiteral("a.b.c"),
                               QStringLiteral("absent/a.bmp"),
                               QStringLiteral("résultat%1.gif").arg(m_chance.bounded(4)),
                               QStringLiteral("résultat%1.jpg").arg(m_chance.bounded(4)),
                               QStringLiteral("résultat%1.bmp").arg(m_chance.bounded(4))};
    const QString& name = names[rowOf(names)];
    return FileChoice{QDir(m_folder).absoluteFilePath(name.isEmpty() ? QStringLiteral("rien") : name),
                      rowOf(request.types)};
}

std::optional<Colour> RandomDialogs::chooseColour(Colour initial) {
    ++m_answered;
    if (happens(30))
        return std::nullopt;
    return happens(20) ? initial : static_cast<Colour>(m_chance.bounded(0x1000000));
}

} // namespace ovrano::monkey
