#include "bodies.h"

#include <QString>

#include <cstdio>

namespace ovrano::fuzz {

const std::vector<Body>& bodies() {
    static const std::vector<Body> all = {
        {"open", openContent},    {"file", openFile},         {"clipboard", pasteClipboard},
        {"drawing", drawVector},  {"svg", makeSelfContained}, {"bmprows", readBmpRows},
        {"gif", writeGifAndRead},
    };
    return all;
}

void prepareBodies() {
    qunsetenv("DISPLAY");
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg) // the toolkit ends the program after this
            std::fputs(qPrintable(text), stderr);
    });
}

} // namespace ovrano::fuzz
