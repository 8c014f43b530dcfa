#include "app/application.h"
#include "monkey/monkey.h"
#include "support/held.h"

#include <cstdio>

using namespace ovrano;

/// monkey_run SEED MINUTES: lets the monkey play and says from time to time what it has seen.
int main(int argc, char** argv) {
    Application application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const double minutes = arguments.value(2).toDouble();
    if (arguments.size() != 3 || minutes <= 0) {
        std::fputs("usage: monkey_run SEED MINUTES\n", stderr);
        return 2;
    }
    monkey::Monkey monkey(arguments[1].toUInt());
    QElapsedTimer played;
    played.start();
    int acts = 0;
    while (double(played.elapsed()) < minutes * 60'000) {
        constexpr int Acts = 5000;
        monkey.play(Acts);
        acts += Acts;
        const testing::Held held = testing::Held::now();
        std::printf(
            "%lld s, %d acts (%d in commands), %d dialogs, %zu MB, %d descriptors, %d widgets, longest "
            "%.0f ms (%s)\n",
            static_cast<long long>(played.elapsed() / 1000), acts, monkey.duringCommands(),
            monkey.dialogsAnswered(), held.resident >> 20, held.descriptors, held.widgets,
            monkey.watch().longest(), qPrintable(monkey.watch().longestWas()));
        std::fflush(stdout);
    }
    const bool works = monkey.programStillWorks();
    for (const QString& text : monkey.watch().messages() + monkey.filesLeft())
        std::printf("! %s\n", qPrintable(text));
    std::printf("%s\n", works ? "the program still works" : "! the program does not open pictures any more");
    return works && monkey.watch().messages().isEmpty() && monkey.filesLeft().isEmpty() ? 0 : 1;
}
