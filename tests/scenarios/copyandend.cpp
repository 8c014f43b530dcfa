#include "scenarios/program.h"
#include "support/testprogram.h"

using namespace ovrano;

namespace {

/// A second run of the program that copies its picture and ends at once, as a hasty user would.
int copyAndEnd(int argc, char** argv) {
    const QApplication application(argc, argv);
    testing::Program program;
    program.window.findChild<QAction*>(QStringLiteral("mnuEditCopy"))->trigger();
    return 0;
}

} // namespace

OVRANO_TEST_RUN(copyAndEnd)
