#include "support/ratiotable.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace ovrano::bench {

namespace {

/// The single times of one way, in milliseconds.
using Times = std::vector<double>;

double median(Times times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

class RatioReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string name = run.run_name.function_name;
            const auto slash = name.rfind('/');
            if (run.run_type != Run::RT_Iteration || slash == std::string::npos)
                continue;
            if (run.error_occurred)
                std::printf("%s: %s\n", name.c_str(), run.error_message.c_str());
            else
                m_rows[name.substr(0, slash)][name.substr(slash + 1)].push_back(
                    run.GetAdjustedRealTime() * 1e3 / benchmark::GetTimeUnitMultiplier(run.time_unit));
        }
    }

    void Finalize() override {
        for (const auto& [row, ways] : m_rows) {
            const auto ours = ways.find("ours");
            if (ours == ways.end())
                continue;
            const double time = median(ours->second);
            std::printf("%-52s ours %9.3f ms", row.c_str(), time);
            for (const auto& [way, times] : ways)
                if (way != "ours")
                    std::printf(" | %s %9.3f ms, x %.3f", way.c_str(), median(times), time / median(times));
            std::printf("\n");
        }
    }

private:
    std::map<std::string, std::map<std::string, Times>> m_rows;
};

} // namespace

int runRatioTable(int argc, char** argv) {
    std::vector<std::string> options = {"--benchmark_enable_random_interleaving=true",
                                        "--benchmark_repetitions=15", "--benchmark_min_time=0.05"};
    std::vector<char*> arguments = {argv[0]};
    for (std::string& option : options)
        arguments.push_back(option.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc); // which may say otherwise
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

} // namespace ovrano::bench
