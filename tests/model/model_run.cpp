#include "model/walk.h"

#include <QApplication>

#include <cstdio>

using namespace ovrano;

namespace {

/// `text` as a number above zero; 0 when it is none.
unsigned positive(const char* text) {
    return QString::fromLocal8Bit(text).toUInt();
}

} // namespace

/// model_run SEED STEPS: walks as many steps and prints the first failure as a test.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 3 || positive(argv[2]) == 0) {
        std::fputs("usage: model_run SEED STEPS\n", stderr);
        return 2;
    }
    const model::Walk done = model::walk(positive(argv[1]), static_cast<int>(positive(argv[2])));
    std::printf("%d steps:", done.steps);
    for (const auto& [kind, count] : done.done)
        std::printf(" %s %d", qPrintable(model::nameOf(kind)), count);
    std::printf("\n%s", qPrintable(done.failure));
    return done.failure.isEmpty() ? 0 : 1;
}
