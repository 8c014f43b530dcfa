#include "document/topics.h"
#include "support/comparison.h"

#include <QApplication>

using namespace ovrano::bench;

OVRANO_BENCH_MAIN(QApplication) {
    const QString folder = qEnvironmentVariable("OVRANO_BENCH_SHEETS");
    if (!folder.isEmpty())
        return saveGifSheets(folder);
    undoing();
    reading();
    saving();
    gif();
}
