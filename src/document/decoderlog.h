#pragma once

#include <QtGlobal>

class QMessageLogContext;
class QString;

namespace ovrano {

/// Listens, while it lives, to what the toolkit's picture decoders write to the log, and keeps it from there:
/// whoever has a picture decoded tells the user himself. It is the only way to hear that a JPEG ends too
/// early, for its decoder makes up the rest and reports success.
///
/// It hears its own thread. Where the log's category "qt.gui.imageio.jpeg" is switched off it hears nothing.
class DecoderLog {
public:
    DecoderLog();
    DecoderLog(const DecoderLog&) = delete;
    DecoderLog& operator=(const DecoderLog&) = delete;
    ~DecoderLog();

    bool tellsOfMissingData() const { return m_tellsOfMissingData; }

private:
    static void listen(QtMsgType type, const QMessageLogContext& context, const QString& text);

    DecoderLog* m_outer;
    bool m_tellsOfMissingData = false;
};

} // namespace ovrano
