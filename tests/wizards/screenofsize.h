#pragma once

#include "support/testprogram.h"

#include <QTemporaryFile>

namespace ovrano {

/// Runs a test class on a screen of its own, whose size is given in pixels.
template<typename Test, int Width, int Height>
int runOnScreen(int argc, char** argv) {
    QTemporaryFile configuration;
    if (!configuration.open())
        return 1;
    configuration.write(QStringLiteral(R"({"screens": [{"name": "only", "x": 0, "y": 0, "width": %1,
        "height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                            .arg(Width)
                            .arg(Height)
                            .toUtf8());
    configuration.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + configuration.fileName().toUtf8());
    return testing::runTest<QApplication, Test>(argc, argv);
}

/// The desktop's font as long as this exists.
class DesktopFont {
public:
    explicit DesktopFont(int points) {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    Q_DISABLE_COPY_MOVE(DesktopFont)
    ~DesktopFont() { QApplication::setFont(m_before); }

private:
    const QFont m_before = QApplication::font();
};

} // namespace ovrano
