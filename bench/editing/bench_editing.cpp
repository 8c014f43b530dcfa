#include "editing/topics.h"
#include "support/comparison.h"

#include <QApplication>

OVRANO_BENCH_MAIN(QApplication) {
    ovrano::bench::composition();
    ovrano::bench::dragSteps();
    ovrano::bench::masks();
}
