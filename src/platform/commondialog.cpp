#include "platform/commondialog.h"

#include "platform/runtimeerror.h"

#include <QFileInfo>

namespace ovrano {

namespace {

QList<FileType> parsed(const QString& filter) {
    const QStringList pieces = filter.split(QLatin1Char('|'));
    QList<FileType> types;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2)
        types.append({pieces.at(i), pieces.at(i + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts)});
    return types;
}

} // namespace

FileRequest CommonDialog::request() const {
    FileRequest request;
    request.title = DialogTitle;
    request.types = parsed(Filter);
    request.typeIndex = FilterIndex - 1;
    request.fileName = FileName;
    if (Target)
        request.target = [this](const QString& path, int typeIndex) { return Target(path, typeIndex + 1); };
    return request;
}

void CommonDialog::accept(const std::optional<FileChoice>& choice) {
    if (choice) {
        FileName = choice->path;
        FileTitle = QFileInfo(choice->path).fileName();
        FilterIndex = choice->typeIndex + 1;
    } else if (CancelError) {
        throw RuntimeError(error::Cancelled);
    }
}

void CommonDialog::ShowOpen() {
    accept(m_dialogs.openFile(request()));
}

void CommonDialog::ShowOpenPicture() {
    Filter = QStringLiteral("Fichiers Images(BMP-GIF-JPEG|*.bmp;*.gif;*.jpg;*.jpeg|"
                            "Tous les fichiers(*.*)|*.*|");
    FilterIndex = 1;
    Flags = OpenFileMustExist;
    FileName.clear();
    CancelError = true;
    ShowOpen();
}

void CommonDialog::ShowSave() {
    accept(m_dialogs.saveFile(request()));
}

void CommonDialog::ShowColor() {
    if (const auto chosen = m_dialogs.chooseColour(Color))
        Color = *chosen;
    else if (CancelError)
        throw RuntimeError(error::Cancelled);
}

Colour CommonDialog::AskColour(ovrano::Colour current, int flags) {
    CancelError = true;
    Flags = flags;
    Color = current;
    ShowColor();
    return Color;
}

} // namespace ovrano
