#include "document/decoderlog.h"

#include <QByteArrayView>
#include <QString>

#include <atomic>

namespace ovrano {

namespace {

thread_local DecoderLog* listening = nullptr;          // the innermost
std::atomic<QtMessageHandler> handlerBefore = nullptr; // before the outermost

} // namespace

DecoderLog::DecoderLog()
    : m_outer(listening) {
    listening = this;
    if (!m_outer)
        handlerBefore = qInstallMessageHandler(listen);
}

DecoderLog::~DecoderLog() {
    listening = m_outer;
    if (!m_outer)
        qInstallMessageHandler(handlerBefore);
}

void DecoderLog::listen(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (listening && QByteArrayView(context.category).startsWith("qt.gui.imageio")) {
        // The words of the JPEG library, which are the same in all languages.
        if (text.contains(QLatin1String("premature end of data segment")))
            listening->m_tellsOfMissingData = true;
        return;
    }
    if (const QtMessageHandler handler = handlerBefore)
        handler(type, context, text);
}

} // namespace ovrano
