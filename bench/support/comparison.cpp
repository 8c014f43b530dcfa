#include "support/comparison.h"

#include "support/table.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <regex>
#include <utility>

namespace ovrano::bench {

namespace {

/// The single times of one way, in milliseconds.
using Times = std::vector<double>;

double median(Times times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// Keeps the times of the ways, whose names are their numbers.
class TimesKeeper : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                m_times[std::stoi(run.run_name.function_name)].push_back(run.GetAdjustedRealTime());
    }

    double medianOf(int way) const { return median(m_times.at(way)); }

private:
    std::map<int, Times> m_times;
};

double secondsOf(const Action& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

Way timed(Action work) {
    return [work = std::move(work)] { return secondsOf(work); };
}

Way timed(Action prepare, Action work) {
    return [prepare = std::move(prepare), work = std::move(work)] {
        prepare();
        return secondsOf(work);
    };
}

Comparison::Comparison(std::string work)
    : m_work(std::move(work)) {}

void Comparison::add(Way way, int repetitions) {
    m_ways.push_back(std::move(way));
    m_repetitions.push_back(repetitions);
}

Comparison& Comparison::ours(Way way, int repetitions) {
    add(std::move(way), repetitions);
    return *this;
}

Comparison& Comparison::against(std::string name, Way way, std::optional<double> atMost, int repetitions) {
    add(std::move(way), repetitions);
    m_others.push_back({std::move(name), atMost});
    return *this;
}

Comparison& Comparison::without(const std::string& name, const std::string& why) {
    std::fprintf(stderr, "%s: without %s, %s\n", m_work.c_str(), name.c_str(), why.c_str());
    return *this;
}

Comparison& Comparison::within(double milliseconds) {
    m_within = milliseconds;
    return *this;
}

void Comparison::run() const {
    if (m_ways.empty())
        return;
    for (std::size_t i = 0; i < m_ways.size(); ++i)
        benchmark::RegisterBenchmark(std::to_string(i).c_str(),
                                     [way = m_ways.at(i)](benchmark::State& state) {
                                         for ([[maybe_unused]] auto _ : state)
                                             state.SetIterationTime(way());
                                     })
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond)
            ->Repetitions(m_repetitions.at(i));
    TimesKeeper times;
    benchmark::RunSpecifiedBenchmarks(&times, ".");
    benchmark::ClearRegisteredBenchmarks();
    const double ours = times.medianOf(0);
    if (m_within)
        printRow(ratioRow(m_work, ours, "one frame", *m_within, " ms", 1));
    for (std::size_t i = 0; i < m_others.size(); ++i)
        printRow(ratioRow(m_work, ours, m_others.at(i).name, times.medianOf(static_cast<int>(i) + 1), " ms",
                          m_others.at(i).atMost));
}

void initialise(int argc, char** argv) {
    std::vector<std::string> options = {"--benchmark_enable_random_interleaving=true",
                                        "--benchmark_min_time=0.02"};
    std::vector<char*> arguments = {argv[0]};
    for (std::string& option : options)
        arguments.push_back(option.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc); // which may say otherwise
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}

bool isWanted(const std::string& work) {
    const std::string filter = benchmark::GetBenchmarkFilter();
    return filter.empty() || filter == "all" || std::regex_search(work, std::regex(filter));
}

void compare(const std::string& work, const std::function<void(Comparison&)>& setUp) {
    if (!isWanted(work))
        return;
    Comparison comparison(work);
    setUp(comparison);
    comparison.run();
}

} // namespace ovrano::bench
