#include "model/replay.h"

#include "model/comparison.h"

namespace ovrano::model {

Replay::Replay()
    : m_model(m_driver.folder(), Driver::Viewport.width(), Driver::Viewport.height()) {}

QString Replay::doStep(const Step& step) {
    m_driver.perform(step);
    m_model.obey(step, m_driver.seenAfter(step));
    const State& state = m_model.state();
    QString found = differences(m_driver, state);
    if (step.kind >= Kind::Copy && step.kind <= Kind::ForeignPicture)
        found += clipboardDifference(state);
    if (step.kind <= Kind::Drop)
        found += filesDifference();
    return found;
}

QString Replay::filesDifference() const {
    const State& state = m_model.state();
    const QString name = state.fileLabel.mid(state.folder.size());
    QString found = folderDifference(state);
    if (state.files.contains(name))
        found += fileDifference(state.folder + name, state.files[name]);
    return found;
}

std::optional<Disagreement> replay(const std::vector<Step>& steps) {
    Replay both;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        if (!both.allows(steps[i]))
            continue;
        const QString found = both.doStep(steps[i]);
        if (!found.isEmpty())
            return Disagreement{i, found};
    }
    return std::nullopt;
}

QString disagreementOf(const std::vector<Step>& steps) {
    const std::optional<Disagreement> found = replay(steps);
    return found ? QStringLiteral("%1\n%2").arg(sourceOf(steps[found->step]), found->text) : QString();
}

} // namespace ovrano::model
