#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ovrano::bench {

/// Does a piece of work once and gives the seconds that it took; what has to be put in order before does not
/// count.
using Way = std::function<double()>;
using Action = std::function<void()>;

Way timed(Action work);
Way timed(Action prepare, Action work);

/// Our way to do a piece of work beside others.
///
/// All of them are run in turns in random order, many times, so that a noisy machine is noisy for all of
/// them. The table gets the medians and the ratio of ours to each other one.
class Comparison {
public:
    static constexpr int Repetitions = 15;
    static constexpr int Few = 3; // for what takes seconds

    explicit Comparison(std::string work);

    Comparison& ours(Way way, int repetitions = Repetitions);
    /// `atMost` is the target for ours / theirs.
    Comparison& against(std::string name, Way way, std::optional<double> atMost = {},
                        int repetitions = Repetitions);
    /// A peer that is not there.
    Comparison& without(const std::string& name, const std::string& why);
    /// Our way is to take no longer than that.
    Comparison& within(double milliseconds);

    void run() const;

private:
    struct Other {
        std::string name;
        std::optional<double> atMost;
    };

    void add(Way way, int repetitions);

    std::string m_work;
    std::vector<Way> m_ways; // ours first
    std::vector<int> m_repetitions;
    std::vector<Other> m_others;
    std::optional<double> m_within;
};

/// Reads the options of Google Benchmark.
void initialise(int argc, char** argv);

/// Whether a piece of work is asked for: --benchmark_filter is a regular expression that its name has to
/// hold.
bool isWanted(const std::string& work);

/// Sets up a comparison and runs it, if it is wanted.
void compare(const std::string& work, const std::function<void(Comparison&)>& setUp);

} // namespace ovrano::bench

/// The main function of a benchmark program, with what follows as its body. Without a display it runs without
/// one.
#define OVRANO_BENCH_MAIN(Application)                                                                       \
    static void runAll();                                                                                    \
    int main(int argc, char** argv) {                                                                        \
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))                                                   \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                                         \
        const Application application(argc, argv);                                                           \
        ovrano::bench::initialise(argc, argv);                                                               \
        runAll();                                                                                            \
    }                                                                                                        \
    static void runAll()
