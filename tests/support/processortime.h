#pragma once

#include <ctime>

namespace ovrano::testing {

/// Processor time that has been taken since this was made, so that a busy machine makes no difference. It
/// tells what would go on for ever, or nearly so; how long work takes is measured in bench/.
class ProcessorTime {
public:
    enum class Of { AllThreads, ThisThread };

    explicit ProcessorTime(Of whom = Of::AllThreads)
        : m_clock(whom == Of::AllThreads ? CLOCK_PROCESS_CPUTIME_ID : CLOCK_THREAD_CPUTIME_ID) {}

    double milliseconds() const { return now() - m_start; }
    void restart() { m_start = now(); }

private:
    double now() const {
        timespec time{};
        clock_gettime(m_clock, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    clockid_t m_clock;
    double m_start = now();
};

} // namespace ovrano::testing
