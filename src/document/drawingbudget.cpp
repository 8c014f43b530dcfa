#include "document/drawingbudget.h"

#include "platform/runtimeerror.h"

#include <algorithm>
#include <utility>

namespace ovrano {

namespace {

void requireAtMost(qint64 limit, qint64 value) {
    if (value > limit)
        throw RuntimeError(error::InvalidPicture);
}

} // namespace

qint64 DrawingBudget::costOf(QSize canvas) {
    return canvas.height() * std::max<qint64>(canvas.width(), canvas.height() / 8);
}

void DrawingBudget::requireAffordable(qint64 elements, qint64 pixels) {
    requireAtMost(MostElementPixels, elements * pixels);
}

void DrawingBudget::enter(const QStringList& names, const QStringList& reused) {
    requireAtMost(DeepestNesting - 1, static_cast<qint64>(m_open.size()));
    Open opened{{}, m_elements, m_reused.size()};
    for (const QString& name : names)
        opened.names.push_back(placeOf(name));
    m_open.push_back(std::move(opened));
    for (const QString& name : reused)
        m_reused.push_back(placeOf(name));
    requireAtMost(MostElements, ++m_elements);
}

void DrawingBudget::leave() {
    const Open& ended = m_open.back();
    for (const std::size_t place : ended.names)
        m_parts[place].push_back({m_elements - ended.elementsBefore, ended.firstReuse, m_reused.size()});
    m_open.pop_back();
}

std::size_t DrawingBudget::placeOf(const QString& name) {
    const auto found = m_places.constFind(name);
    if (found != m_places.constEnd())
        return *found;
    m_places.insert(name, m_parts.size());
    m_parts.emplace_back();
    return m_parts.size() - 1;
}

qint64 DrawingBudget::drawnElements() const {
    KnownCosts known(m_parts.size());
    return costOf({m_elements, 0, m_reused.size()}, 0, known).elements;
}

/// `depth` elements draw one another on the way from the whole picture to this part. What is beyond a limit
/// here is so for the whole picture, of which everything named is a part.
DrawingBudget::Cost DrawingBudget::costOf(const Part& part, int depth, KnownCosts& known) const {
    Cost sum{part.elements, 0};
    for (std::size_t reuse = part.firstReuse; reuse < part.pastReuse; ++reuse) {
        const Cost one = costOfNamed(m_reused[reuse], depth + 1, known);
        sum.elements += one.elements;
        sum.chain = std::max(sum.chain, one.chain + 1);
        requireAtMost(MostElements, sum.elements);
        requireAtMost(LongestChain, depth + sum.chain);
    }
    return sum;
}

/// A circle has no cost: it is followed until the chain is too long.
DrawingBudget::Cost DrawingBudget::costOfNamed(std::size_t place, int depth, KnownCosts& known) const {
    requireAtMost(LongestChain, depth);
    if (!known[place]) {
        Cost sum;
        for (const Part& part : m_parts[place]) {
            const Cost one = costOf(part, depth, known);
            sum.elements += one.elements;
            sum.chain = std::max(sum.chain, one.chain);
            requireAtMost(MostElements, sum.elements);
        }
        known[place] = sum;
    }
    return *known[place];
}

} // namespace ovrano
