#include "support/table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

namespace ovrano::bench {

namespace {

void printCells(const TableRow& row, const char* reached) {
    std::printf("| %-58s | %12s | %-44s | %12s | %9s | %9s | %-7s |\n", row.work.c_str(), row.ours.c_str(),
                row.other.c_str(), row.theirs.c_str(), row.ratio.c_str(), row.target.c_str(), reached);
    std::fflush(stdout);
}

void printHead() {
    static bool printed = false;
    if (std::exchange(printed, true))
        return;
    printCells({"work", "ours", "compared to", "takes", "ratio", "target", {}}, "reached");
    std::printf("|---|---:|---|---:|---:|---:|---|\n");
}

} // namespace

void printRow(const TableRow& row) {
    printHead();
    printCells(row, !row.reached ? "" : *row.reached ? "yes" : "NO");
}

std::string threeDigits(double value) {
    const double size = std::max(1e-3, std::abs(value));
    const int decimals = std::clamp(2 - static_cast<int>(std::floor(std::log10(size))), 0, 4);
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

TableRow ratioRow(const std::string& work, double ours, const std::string& other, double theirs,
                  const std::string& unit, std::optional<double> atMost) {
    const double ratio = ours / theirs;
    TableRow row{work, threeDigits(ours) + unit, other, threeDigits(theirs) + unit, threeDigits(ratio), {},
                 {}};
    if (atMost) {
        row.target = "<= " + threeDigits(*atMost);
        row.reached = ratio <= *atMost;
    }
    return row;
}

} // namespace ovrano::bench
