#include "app/application.h"
#include "app/topics.h"
#include "support/comparison.h"

#include <QString>

#include <cstring>

using namespace ovrano::bench;

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const ovrano::Application application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], MemoryOption) == 0) {
        printMemory(argv[2]);
        return 0;
    }
    initialise(argc, argv);
    stamping();
    dragging();
    opening();
    starting();
    memory();
    return 0;
}
