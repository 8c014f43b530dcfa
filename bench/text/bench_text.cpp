#include "support/comparison.h"
#include "text/topics.h"

#include <QApplication>

OVRANO_BENCH_MAIN(QApplication) {
    ovrano::bench::rotations();
    ovrano::bench::extrusions();
}
