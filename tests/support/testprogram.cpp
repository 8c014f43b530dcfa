#include "support/testprogram.h"

#include <QFileInfo>

#include <cstdio>
#include <map>

namespace ovrano::testing {

namespace {

using Entries = std::map<QString, Entry::Run>;

Entries& entries() {
    static Entries all;
    return all;
}

} // namespace

Entry::Entry(const char* source, Run run) {
    entries()[QFileInfo(QString::fromUtf8(source)).completeBaseName()] = run;
}

} // namespace ovrano::testing

int main(int argc, char** argv) {
    using namespace ovrano::testing;
    const auto chosen = argc < 2 ? entries().end() : entries().find(QString::fromLocal8Bit(argv[1]));
    if (chosen == entries().end()) {
        std::fprintf(stderr, "usage: %s TEST [CASE...] [OPTION...], where TEST is one of\n", argv[0]);
        for (const auto& [name, run] : entries())
            std::fprintf(stderr, "    %s\n", qPrintable(name));
        return 2;
    }
    // The rest is what the test sees as its command line.
    argv[1] = argv[0];
    return chosen->second(argc - 1, argv + 1);
}
