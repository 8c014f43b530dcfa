#pragma once

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QObject>

#include <cstdint>
#include <functional>

namespace ovrano {

/// Asks a handler about every character that is brought into a line edit by a key (pasting is one) or by an
/// input method, before it arrives there. The handler replaces the code of a character that is to be
/// discarded by 0; one that is discarded keeps the others of its key or composition away as well. Backspace
/// comes as code 8; keys that move, delete to the right, confirm, cancel or command are not asked about.
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
