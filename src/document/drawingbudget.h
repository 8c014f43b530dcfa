#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace ovrano {

/// Tells whether the elements of a vector picture can be drawn in reasonable time and depth. An element may
/// draw another one once more by its name, which draws others in turn: a few lines can stand for billions of
/// shapes, or for none that ever ends.
class DrawingBudget {
public:
    static constexpr int DeepestNesting = 200; // drawing calls itself for each level
    static constexpr int LongestChain = 20;    // of elements that draw one another
    static constexpr double MostElements = 1'000'000;

    /// An element begins; `id` is its name and `reused` the name of the one that it draws, both possibly
    /// empty. Throws RuntimeError 481 when it is nested too deeply.
    void enter(const QString& id, const QString& reused);
    void leave();

    /// To be asked at the end: whether everything that is drawn stays within the limits.
    bool isKept() const;

private:
    /// An element with a name, and everything in it.
    struct Named {
        double elements = 0;
        QStringList reused;
    };

    /// What one drawing of a named element comes to.
    struct Cost {
        double elements = 0;
        int chain = 0; // of elements that draw one another
        bool isKept() const { return elements <= MostElements && chain <= LongestChain; }
    };
    Cost cost(const QString& id, int depth, QHash<QString, Cost>& known) const;

    QHash<QString, Named> m_named; // the whole picture has the empty name
    std::vector<QString> m_open;   // names of the elements around the present place, empty ones too
};

} // namespace ovrano
