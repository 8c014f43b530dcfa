#pragma once

#include "support/comparison.h"

#include <QString>
#include <QStringList>

namespace ovrano::bench {

/// The first of some programs that is installed; empty when none is.
QString installedOf(const QStringList& names);

/// Running a program from its start to its end. One that fails ends the benchmark.
Way processWay(const QString& program, const QStringList& arguments);

/// What a program prints.
QString outputOf(const QString& program, const QStringList& arguments);

/// The command-line converter; empty when it is not installed.
QString imageConverter();

/// A folder in memory, so that files cost what writing and reading them costs and not what a disk costs.
QString memoryFolder();

} // namespace ovrano::bench
