#include "model/step.h"

#include <QMap>
#include <QStringList>

namespace ovrano::model {

namespace {

QString nameOf(Answer reply) {
    switch (reply) {
    case Answer::Yes:
        return QStringLiteral("Yes");
    case Answer::Cancel:
        return QStringLiteral("Cancel");
    default:
        return QStringLiteral("No");
    }
}

} // namespace

bool isCommandKey(const Step& step) {
    switch (step.kind) {
    case Kind::Undo:
    case Kind::Paste:
        return step.numbers[0] == 2;
    case Kind::Copy:
    case Kind::Cut:
        return step.numbers[0] == 1;
    default:
        return false;
    }
}

bool isOnPicture(const Step& step) {
    return (step.kind >= Kind::Gesture && step.kind <= Kind::Enter) || isCommandKey(step);
}

QString nameOf(Kind kind) {
    static const QMap<Kind, QString> names{
        {Kind::Open, QStringLiteral("Open")},
        {Kind::New, QStringLiteral("New")},
        {Kind::NewCancelled, QStringLiteral("NewCancelled")},
        {Kind::NewClosed, QStringLiteral("NewClosed")},
        {Kind::Save, QStringLiteral("Save")},
        {Kind::Drop, QStringLiteral("Drop")},
        {Kind::TextDialog, QStringLiteral("TextDialog")},
        {Kind::Push, QStringLiteral("Push")},
        {Kind::TextColour, QStringLiteral("TextColour")},
        {Kind::Close, QStringLiteral("Close")},
        {Kind::Undo, QStringLiteral("Undo")},
        {Kind::Background, QStringLiteral("Background")},
        {Kind::ZoneButton, QStringLiteral("ZoneButton")},
        {Kind::ZoneEntry, QStringLiteral("ZoneEntry")},
        {Kind::PickerButton, QStringLiteral("PickerButton")},
        {Kind::PickerEntry, QStringLiteral("PickerEntry")},
        {Kind::Gesture, QStringLiteral("Gesture")},
        {Kind::Space, QStringLiteral("Space")},
        {Kind::Arrow, QStringLiteral("Arrow")},
        {Kind::Enter, QStringLiteral("Enter")},
        {Kind::Copy, QStringLiteral("Copy")},
        {Kind::Cut, QStringLiteral("Cut")},
        {Kind::Paste, QStringLiteral("Paste")},
        {Kind::PasteFile, QStringLiteral("PasteFile")},
        {Kind::PasteNew, QStringLiteral("PasteNew")},
        {Kind::ClearClipboard, QStringLiteral("ClearClipboard")},
        {Kind::ForeignText, QStringLiteral("ForeignText")},
        {Kind::ForeignPicture, QStringLiteral("ForeignPicture")},
        {Kind::Stamp, QStringLiteral("Stamp")},
        {Kind::OpenMenu, QStringLiteral("OpenMenu")},
        {Kind::OneColourText, QStringLiteral("OneColourText")},
        {Kind::Scroll, QStringLiteral("Scroll")},
    };
    return names.value(kind);
}

QString sourceOf(const Step& step) {
    QStringList numbers;
    for (const int number : step.numbers)
        numbers.append(QString::number(number));
    const QString reply =
        step.reply == Answer::No ? QString() : QStringLiteral(", Answer::") + nameOf(step.reply);
    return QStringLiteral("{Kind::%1, {%2}%3}")
        .arg(nameOf(step.kind), numbers.join(QStringLiteral(", ")), reply);
}

QString testOf(const std::vector<Step>& steps) {
    QString source = QStringLiteral("void TestFound::found() {\n    QCOMPARE(disagreementOf({\n");
    for (const Step& step : steps)
        source += QStringLiteral("        %1,\n").arg(sourceOf(step));
    return source + QStringLiteral("    }), QString());\n}\n");
}

} // namespace ovrano::model
