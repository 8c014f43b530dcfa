#pragma once

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QObject>

#include <cstdint>
#include <functional>

namespace ovrano {

/// Asks a handler about every character that a key (the paste key included) or an input method brings into a
/// line edit, before it arrives. The handler discards a character by setting its code to 0; then the whole
/// key or composition is discarded. Backspace comes as code 8; keys that move, delete to the right, confirm,
/// cancel or command are not asked about.
class TypingFilter : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(std::int16_t& keyAscii)>;

    /// Lives as long as the edit, which may be the one of a combo box.
    TypingFilter(QLineEdit& edit, Handler handler);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool accepts(const QString& typed) const;
    bool refuseComposed(QObject& receiver, const QInputMethodEvent& event) const;

    Handler m_handler;
};

} // namespace ovrano
