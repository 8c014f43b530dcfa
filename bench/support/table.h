#pragma once

#include <optional>
#include <string>

namespace ovrano::bench {

/// One row of the table: what was measured, beside one thing that it is compared to.
struct TableRow {
    std::string work;
    std::string ours;
    std::string other;           // what it is compared to
    std::string theirs;          // what that takes
    std::string ratio;           // of ours to theirs, or their difference
    std::string target;          // empty: none
    std::optional<bool> reached; // nothing: there is no target
};

/// Prints a row at once, in Markdown; the first one with the table's head above it.
void printRow(const TableRow& row);

/// A number with three digits that count.
std::string threeDigits(double value);

/// The row of a ratio that is to be at most `atMost`; `unit` is that of both values.
TableRow ratioRow(const std::string& work, double ours, const std::string& other, double theirs,
                  const std::string& unit, std::optional<double> atMost);

} // namespace ovrano::bench
