#include "platform/typingfilter.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

/// What a key press would bring into a field: a character, or the clipboard's text; nothing for keys that
/// move, delete or command, whatever text a platform gives them.
QString broughtBy(const QKeyEvent& press) {
    if (press.matches(QKeySequence::Paste))
        return QGuiApplication::clipboard()->text();
    if (press.key() == Qt::Key_Backspace)
        return QStringLiteral("\b");
    const QString text = press.text();
    const bool isCommand = text.size() == 1 && !text.front().isPrint();
    return isCommand ? QString() : text;
}

} // namespace

TypingFilter::TypingFilter(QLineEdit& edit, Handler handler)
    : QObject(&edit)
    , m_handler(std::move(handler)) {
    edit.installEventFilter(this);
    // The field of a combo box gets its keys from the box, past its own filters.
    if (QWidget* box = edit.focusProxy())
        box->installEventFilter(this);
}

bool TypingFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress)
        return !accepts(broughtBy(*static_cast<QKeyEvent*>(event)));
    if (event->type() == QEvent::InputMethod)
        return refuseComposed(*watched, *static_cast<QInputMethodEvent*>(event));
    return QObject::eventFilter(watched, event);
}

bool TypingFilter::refuseComposed(QObject& receiver, const QInputMethodEvent& event) const {
    if (accepts(event.commitString()))
        return false;
    // The text under composition ends all the same, or its accent would stay in the field.
    QInputMethodEvent without(event.preeditString(), event.attributes());
    QCoreApplication::sendEvent(&receiver, &without);
    return true;
}

bool TypingFilter::accepts(const QString& typed) const {
    return std::all_of(typed.begin(), typed.end(), [this](QChar character) {
        auto keyAscii = static_cast<std::int16_t>(character.unicode());
        m_handler(keyAscii);
        return keyAscii != 0;
    });
}

} // namespace ovrano
