#include "longlife/life.h"
#include "support/held.h"

#include <QApplication>

#include <cstdio>

using namespace ovrano;

namespace {

void report(int round, const longlife::Life& life) {
    const testing::Held held = testing::Held::now();
    std::printf("%d rounds: %zu KB allocated, %zu KB resident, %d threads, %d descriptors, %d widgets, "
                "%d files\n",
                round, held.allocated >> 10, held.resident >> 10, held.threads, held.descriptors,
                held.widgets, life.files());
    std::fflush(stdout);
}

} // namespace

/// longlife_run ROUNDS: lives as long and says ten times what is held.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int rounds = argc == 2 ? QString::fromLocal8Bit(argv[1]).toInt() : 0;
    if (rounds < 10) {
        std::fputs("usage: longlife_run ROUNDS\n", stderr);
        return 2;
    }
    longlife::Life life;
    for (int round = 0; round < rounds; ++round) {
        if (round % (rounds / 10) == 0)
            report(round, life);
        if (const QString wrong = life.live(round); !wrong.isEmpty()) {
            std::printf("round %d: %s\n", round, qPrintable(wrong));
            return 1;
        }
    }
    report(rounds, life);
    return 0;
}
