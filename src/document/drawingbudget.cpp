#include "document/drawingbudget.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <limits>

namespace ovrano {

namespace {

constexpr double Endless = std::numeric_limits<double>::infinity();

} // namespace

void DrawingBudget::enter(const QString& id, const QString& reused) {
    if (m_open.size() >= DeepestNesting)
        throw RuntimeError(error::InvalidPicture);
    m_open.push_back(id);
    const auto count = [&](const QString& name) {
        Named& named = m_named[name];
        named.elements += 1;
        if (!reused.isEmpty())
            named.reused.append(reused);
    };
    count(QString());
    for (const QString& name : m_open)
        if (!name.isEmpty())
            count(name);
}

void DrawingBudget::leave() {
    m_open.pop_back();
}

bool DrawingBudget::isKept() const {
    QHash<QString, Cost> known;
    return cost(QString(), 0, known).isKept();
}

/// `known` holds what has been counted, and marks as endless what is being counted: who comes back to it
/// draws himself. The first cost beyond the limits ends the count.
DrawingBudget::Cost DrawingBudget::cost(const QString& id, int depth, QHash<QString, Cost>& known) const {
    if (const auto found = known.constFind(id); found != known.constEnd())
        return *found;
    if (depth > LongestChain)
        return {Endless, 0};
    const Named named = m_named.value(id);
    known.insert(id, {Endless, 0});
    Cost sum{named.elements, 0};
    for (const QString& reused : named.reused) {
        const Cost one = cost(reused, depth + 1, known);
        sum.elements += one.elements;
        sum.chain = std::max(sum.chain, one.chain + 1);
        if (!sum.isKept())
            return sum;
    }
    known.insert(id, sum);
    return sum;
}

} // namespace ovrano
