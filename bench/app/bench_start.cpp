#include "app/topics.h"
#include "app/windowwatch.h"
#include "support/comparison.h"
#include "support/program.h"

#include <QGuiApplication>

#include <memory>

namespace ovrano::bench {

#ifdef OVRANO_BENCH_XCB

void starting() {
    compare("start to the first usable window, warm", [](Comparison& ways) {
        if (QGuiApplication::platformName() != QStringLiteral("xcb")) {
            ways.without("all", "for which a display is needed");
            return;
        }
        const auto watch = std::make_shared<WindowWatch>();
        ways.ours([=] { return watch->secondsUntilUsable(QStringLiteral(OVRANO_PROGRAM)); });
        ways.against("an empty window of the toolkit",
                     [=] { return watch->secondsUntilUsable(QStringLiteral(OVRANO_EMPTY_WINDOW)); });
        if (const QString paint = installedOf({QStringLiteral("mtpaint")}); paint.isEmpty())
            ways.without("mtpaint", "which is not installed");
        else
            ways.against(
                "mtpaint, a light paint program", [=] { return watch->secondsUntilUsable(paint); }, 0.6);
    });
}

#else

void starting() {}

#endif

} // namespace ovrano::bench
