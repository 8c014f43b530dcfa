#pragma once

#include "model/document.h"
#include "model/exchange.h"
#include "model/hand.h"
#include "model/step.h"

namespace ovrano::model {

/// The whole program, told a second time: slowly, on plain arrays, from what it is meant to do.
class Model {
public:
    /// `folder` is where the files are, with its last slash; the viewport is in pixels.
    Model(const QString& folder, int viewportWidth, int viewportHeight);
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    const State& state() const { return s; }

    /// Whether a user could do this now; otherwise the step is left out.
    bool allows(const Step& step) const;
    /// `seen` is what the model cannot tell: a text as the platform has drawn it, or what is left of a
    /// picture in a file of a format that loses something.
    void obey(const Step& step, const Pixels& seen);

private:
    void obeyFile(const Step& step, const Pixels& seen);
    void obeyTool(const Step& step);
    void obeyEdit(const Step& step, const Pixels& seen);
    void startNew(const Step& step);
    void undo(int way);
    void gesture(const std::vector<int>& numbers);
    void openMenu(int menu);
    void textDialog(bool applied, const Pixels& seen);
    std::optional<Pixels> pictureOf(int file) const;
    bool allowsKey(Kind key) const;
    bool allowsGesture(const std::vector<int>& numbers) const;

    State s;
    Zone m_zone;
    Hand m_hand;
    Exchange m_exchange;
    Document m_document;
};

} // namespace ovrano::model
