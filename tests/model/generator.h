#pragma once

#include "model/state.h"
#include "model/step.h"

#include <random>

namespace ovrano::model {

/// Makes up what a user could do next, the same for the same seed everywhere.
class Generator {
public:
    explicit Generator(unsigned seed)
        : m_random(seed) {}

    /// Aims at what there is to be hit: the edges, the lifted block, the zone mode.
    Step next(const State& state);
    /// A small picture.
    Step start();

private:
    int upTo(int limit); // 0 to limit - 1
    int between(int from, int to);
    bool chance(int percent) { return upTo(100) < percent; }

    Step open();
    Step newPicture();
    Step command(const State& state);
    Step documentCommand(int dice);
    Step modeCommand(int dice);
    Step clipboardCommand(int dice);
    Step otherCommand(const State& state);
    Step rareCommand();
    Step gesture(const State& state);
    std::vector<int> path(const State& state);
    std::vector<int> blockDrag(const State& state);
    std::vector<int> band(const State& state);
    std::vector<int> edgeDrag(const State& state);
    Step arrow();
    Answer reply();
    int side();
    int file();
    int typedFile();

    std::mt19937 m_random;
};

} // namespace ovrano::model
