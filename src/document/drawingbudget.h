#pragma once

#include <QHash>
#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ovrano {

/// Counts how many elements drawing a vector picture would draw, and refuses too many. An element may reuse
/// another by its name, which reuses others in turn: a few lines can stand for billions of shapes, or for an
/// endless chain.
///
/// Every element counts, drawn or not, whatever the number of its points or letters. The count is never below
/// what is drawn. The answer does not depend on the order of reading: whatever exceeds a limit first, the
/// whole picture is refused.
class DrawingBudget {
public:
    static constexpr int DeepestNesting = 200; // drawing calls itself for each level
    static constexpr int LongestChain = 20;    // of elements that draw one another
    static constexpr qint64 MostElements = 1'000'000;
    static constexpr qint64 MostElementPixels = 100'000'000'000;

    /// An element begins, with all names that it may be drawn by and those of the elements that it may draw.
    /// Throws error::InvalidPicture when it is nested too deeply or one too many.
    void enter(const QStringList& names, const QStringList& reused);
    void leave();

    /// To be asked at the end: the elements that one drawing comes to, each as often as it is drawn. Throws
    /// error::InvalidPicture when these are too many or draw one another in too long a chain, or a circle.
    qint64 drawnElements() const;

    /// What an element costs that covers all of a canvas, in pixels: as many as there are, or an eighth of
    /// the square of the height where the canvas is narrow. The painter takes some 40 rows at a time, each
    /// time follows an outline through all rows, and one such row takes as long as five pixels.
    static qint64 costOf(QSize canvas);
    /// Throws error::InvalidPicture when drawing so many elements takes too long if each costs so many
    /// pixels.
    static void requireAffordable(qint64 elements, qint64 pixels);

private:
    /// An element and everything in it: how many these are, and their places in m_reused.
    struct Part {
        qint64 elements = 0;
        std::size_t firstReuse = 0;
        std::size_t pastReuse = 0;
    };

    /// An element that has not ended yet.
    struct Open {
        std::vector<std::size_t> names; // places in m_parts
        qint64 elementsBefore = 0;
        std::size_t firstReuse = 0;
    };

    /// What one drawing comes to.
    struct Cost {
        qint64 elements = 0;
        int chain = 0; // of elements that draw one another
    };
    using KnownCosts = std::vector<std::optional<Cost>>; // by place in m_parts

    std::size_t placeOf(const QString& name);
    Cost costOf(const Part& part, int depth, KnownCosts& known) const;
    Cost costOfNamed(std::size_t place, int depth, KnownCosts& known) const;

    QHash<QString, std::size_t> m_places;   // of a name in m_parts
    std::vector<std::vector<Part>> m_parts; // a name may stand at several elements; all count
    std::vector<std::size_t> m_reused;      // places in m_parts, in the order of the text
    std::vector<Open> m_open;
    qint64 m_elements = 0;
};

} // namespace ovrano
