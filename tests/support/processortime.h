#pragma once

#include <ctime>

namespace ovrano::testing {

/// Processor time that the calling thread has taken since this was made, so that a busy machine makes no
/// difference. It tells what would go on for ever, or nearly so; how long work takes is measured in bench/.
class ProcessorTime {
public:
    double milliseconds() const { return now() - m_start; }

private:
    static double now() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    double m_start = now();
};

} // namespace ovrano::testing
