#pragma once

#include "model/zone.h"
#include "platform/dialogs.h"

namespace ovrano::model {

/// Copying, cutting, pasting and the text stamp.
class Exchange {
public:
    Exchange(State& state, Zone& zone)
        : s(state)
        , m_zone(zone) {}

    void copy();
    void cut();
    /// `reply` answers the question about a larger picture.
    void paste(bool transparent, Answer reply);
    /// The chosen file's picture; none when it cannot be read.
    void pasteFile(const std::optional<Pixels>& picture, bool transparent, Answer reply);
    void pasteNew();
    void clearClipboard();
    /// The text as the platform has drawn it.
    void stamp(const Pixels& text);

private:
    struct Words {
        QString work, pasted, reason;
    };
    void prepare();
    void load(const Pixels& picture, bool transparent, Answer reply, const Words& words);
    bool makeRoom(const Pixels& picture, Answer reply, const Words& words);
    void ask(const Pixels& picture, const Words& words);
    void place(const Pixels& picture, bool transparent);
    void makeCornerSeeThrough();
    void restoreFrame();

    State& s;
    Zone& m_zone;
};

} // namespace ovrano::model
