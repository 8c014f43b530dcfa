#include "app/textfieldkeys.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace ovrano {

namespace {

bool clipboardHasText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

} // namespace

TextFieldKeys::TextFieldKeys(QLineEdit& field)
    : QObject(&field)
    , m_field(field) {
    field.installEventFilter(this);
}

bool TextFieldKeys::isOfNoUse(const QKeyEvent& press) const {
    if (press.matches(QKeySequence::Paste))
        return !clipboardHasText();
    if (press.matches(QKeySequence::Copy) || press.matches(QKeySequence::Cut))
        return !m_field.hasSelectedText();
    return press.matches(QKeySequence::Undo) && !m_field.isUndoAvailable();
}

bool TextFieldKeys::eventFilter(QObject* watched, QEvent* event) {
    // Before any shortcut, the field is asked whether a key is its own; leaving the event unaccepted means
    // no.
    const bool left = event->type() == QEvent::ShortcutOverride && isOfNoUse(*static_cast<QKeyEvent*>(event));
    if (left)
        event->ignore();
    return left || QObject::eventFilter(watched, event);
}

} // namespace ovrano
