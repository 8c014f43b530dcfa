#include "model/shrinker.h"

#include <algorithm>

namespace ovrano::model {

namespace {

std::vector<Step> without(const std::vector<Step>& steps, std::size_t from, std::size_t count) {
    std::vector<Step> rest(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t next = std::min(steps.size(), from + count);
    rest.insert(rest.end(), steps.begin() + static_cast<std::ptrdiff_t>(next), steps.end());
    return rest;
}

/// Leaves out runs of `count` steps wherever that keeps the failure; tells whether any went.
template<typename Fails>
bool leaveOut(std::vector<Step>& steps, std::size_t count, const Fails& fails) {
    bool shorter = false;
    for (std::size_t from = 0; from < steps.size();) {
        std::vector<Step> rest = without(steps, from, count);
        if (fails(rest)) {
            steps = std::move(rest);
            shorter = true;
        } else {
            from += count;
        }
    }
    return shorter;
}

/// The same with two steps that need not be neighbours, such as a mode that is switched on and off.
template<typename Fails>
bool leaveOutAPair(std::vector<Step>& steps, const Fails& fails) {
    for (std::size_t second = 1; second < steps.size(); ++second)
        for (std::size_t first = 0; first < second; ++first) {
            std::vector<Step> rest = without(without(steps, second, 1), first, 1);
            if (fails(rest)) {
                steps = std::move(rest);
                return true;
            }
        }
    return false;
}

} // namespace

std::vector<Step> shrunk(std::vector<Step> steps,
                         const std::function<bool(const std::vector<Step>&)>& fails) {
    for (std::size_t count = std::max<std::size_t>(1, steps.size() / 2); count > 1; count /= 2)
        leaveOut(steps, count, fails);
    constexpr std::size_t ManySteps = 40; // every pair of so many is tried
    while (leaveOut(steps, 1, fails) || (steps.size() <= ManySteps && leaveOutAPair(steps, fails))) {
    }
    return steps;
}

} // namespace ovrano::model
