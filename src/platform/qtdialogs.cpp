#include "platform/qtdialogs.h"

#include "platform/paths.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QStandardPaths>

#include <algorithm>

namespace ovrano {

namespace {

QMessageBox::Icon iconOf(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Critical:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
    if (buttons == Buttons::YesNoCancel)
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    return QMessageBox::Ok;
}

Answer answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    case QMessageBox::Cancel:
        return Answer::Cancel;
    default:
        return Answer::Ok;
    }
}

/// "*.*" means every file, also one without a dot in its name.
QString patternsOf(const FileType& type) {
    QStringList patterns = type.patterns;
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    return patterns.join(QLatin1Char(' '));
}

QStringList nameFilters(const QList<FileType>& types) {
    QStringList filters;
    for (const FileType& type : types)
        filters.append(type.description + QStringLiteral(" (") + patternsOf(type) + QLatin1Char(')'));
    return filters;
}

/// Dialogs give the chosen row back with or without its patterns, so the description decides.
int indexOfFilter(const QList<FileType>& types, const QString& selected, int otherwise) {
    const QString plain = selected.simplified();
    for (qsizetype i = 0; i < types.size(); ++i)
        if (plain.startsWith(types.at(i).description.simplified()))
            return static_cast<int>(i);
    return otherwise; // a desktop's own dialog may not tell
}

/// The toolkit joins double blanks of a description; its own dialog can be told the text as it stands.
void showDescriptions(const QFileDialog& dialog, const QList<FileType>& types) {
    auto* rows = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    for (qsizetype i = 0; rows && i < types.size(); ++i)
        rows->setItemText(static_cast<int>(i), types.at(i).description);
}

/// The window that a dialog belongs to, also while the user is busy in another program.
QWidget* dialogParent() {
    for (QWidget* window : {QApplication::activeModalWidget(), QApplication::activeWindow()})
        if (window)
            return window;
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return shown == windows.end() ? nullptr : *shown;
}

QString picturesFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QDir(folder).exists() ? folder : QDir::homePath();
}

} // namespace

Answer QtDialogs::messageBox(const MessageBox& box) {
    QString text = box.text;
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const QString title = box.title.isEmpty() ? QGuiApplication::applicationName() : box.title;
    QMessageBox window(iconOf(box.icon), title, text, buttonsOf(box.buttons), dialogParent());
    window.setTextFormat(Qt::PlainText);
    return answerOf(window.exec());
}

QString QtDialogs::inputBox(const InputBox& box) {
    QInputDialog dialog(dialogParent());
    dialog.setWindowTitle(box.title);
    dialog.setLabelText(box.prompt);
    dialog.setTextValue(box.proposed);
    for (QLabel* prompt : dialog.findChildren<QLabel*>())
        prompt->setTextFormat(Qt::PlainText); // it may hold a file name that looks like markup
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

void QtDialogs::prepare(QFileDialog& dialog, const FileRequest& request) const {
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setDirectory(m_folders.value(request.title, picturesFolder()));
    const QStringList filters = nameFilters(request.types);
    dialog.setNameFilters(filters);
    if (request.typeIndex >= 0 && request.typeIndex < filters.size())
        dialog.selectNameFilter(filters.at(request.typeIndex));
    showDescriptions(dialog, request.types); // only now: a row is selected by the toolkit's own text
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
}

std::optional<FileChoice> QtDialogs::run(QFileDialog& dialog, const FileRequest& request) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    m_folders.insert(request.title, QFileInfo(path).absolutePath());
    return FileChoice{QDir::toNativeSeparators(path),
                      indexOfFilter(request.types, dialog.selectedNameFilter(), request.typeIndex)};
}

std::optional<FileChoice> QtDialogs::openFile(const FileRequest& request) {
    QFileDialog dialog(dialogParent(), request.title);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    prepare(dialog, request);
    return run(dialog, request);
}

std::optional<FileChoice> QtDialogs::saveFile(const FileRequest& request) {
    QFileDialog dialog(dialogParent(), request.title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    // The question is asked below, for the file that will really be replaced.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    prepare(dialog, request);
    while (auto choice = run(dialog, request))
        if (mayReplace(request, *choice))
            return choice;
    return std::nullopt;
}

bool QtDialogs::mayReplace(const FileRequest& request, const FileChoice& choice) {
    const QString path = request.target ? request.target(choice.path, choice.typeIndex) : choice.path;
    if (!FileExists(path))
        return true;
    const QString question = QStringLiteral("Le fichier « %1 » existe déjà.\nVoulez-vous le remplacer ?");
    QMessageBox window(QMessageBox::Warning, request.title, question.arg(QFileInfo(path).fileName()),
                       QMessageBox::Yes | QMessageBox::No, dialogParent());
    window.setTextFormat(Qt::PlainText);
    window.setDefaultButton(QMessageBox::No);
    return window.exec() == QMessageBox::Yes;
}

std::optional<Colour> QtDialogs::chooseColour(Colour initial) {
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(toPixel(initial)), dialogParent(),
                                                 QStringLiteral("Choisir une couleur"));
    if (!chosen.isValid())
        return std::nullopt;
    return rgb(chosen.red(), chosen.green(), chosen.blue());
}

} // namespace ovrano
