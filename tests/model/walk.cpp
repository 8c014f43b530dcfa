#include "model/walk.h"

#include "model/generator.h"
#include "model/shrinker.h"

namespace ovrano::model {

namespace {

constexpr int StepsInASequence = 100;

QString report(const std::vector<Step>& steps, const QString& seen) {
    const auto fails = [](const std::vector<Step>& some) { return replay(some).has_value(); };
    if (!fails(steps))
        return QStringLiteral("not seen again in a second run:\n%1\n%2").arg(seen, testOf(steps));
    const std::vector<Step> shortest = shrunk(steps, fails);
    return disagreementOf(shortest) + QLatin1Char('\n') + testOf(shortest);
}

/// One sequence; what was seen when it failed, and empty when it did not.
QString walkOnce(Generator& generator, int steps, std::vector<Step>& walked, Walk& result) {
    Replay both;
    while (static_cast<int>(walked.size()) < steps) {
        const Step step = walked.empty() ? generator.start() : generator.next(both.state());
        if (!both.allows(step))
            continue;
        walked.push_back(step);
        ++result.steps;
        ++result.done[step.kind];
        const QString found = both.doStep(step);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

} // namespace

Walk walk(unsigned seed, int steps) {
    Generator generator(seed);
    Walk result;
    while (result.steps < steps && result.failure.isEmpty()) {
        std::vector<Step> walked;
        const int length = std::min(StepsInASequence, steps - result.steps);
        const QString seen = walkOnce(generator, length, walked, result);
        if (!seen.isEmpty())
            result.failure = report(walked, seen); // only now, when that window has gone
    }
    return result;
}

} // namespace ovrano::model
