#pragma once

#include "model/driver.h"
#include "model/model.h"

#include <optional>

namespace ovrano::model {

/// Where the window and the model told different things for the first time.
struct Disagreement {
    std::size_t step = 0; // counted from 0
    QString text;
};

/// The window and the model side by side, from a fresh start.
class Replay {
public:
    Replay();

    const State& state() const { return m_model.state(); }
    bool allows(const Step& step) const { return m_model.allows(step); }
    MainWindow& window() { return m_driver.window(); }
    /// What differs after the step; empty when nothing does.
    QString doStep(const Step& step);

private:
    QString filesDifference() const;

    Driver m_driver;
    Model m_model;
};

/// Steps that a user could not do are left out.
std::optional<Disagreement> replay(const std::vector<Step>& steps);

/// For tests: what differs, after which step; empty when nothing does.
QString disagreementOf(const std::vector<Step>& steps);

} // namespace ovrano::model
