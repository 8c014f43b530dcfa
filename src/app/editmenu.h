#pragma once

namespace ovrano {

/// What the Edit menu's entries are enabled by.
struct EditState {
    bool imageLoaded = false;
    bool undoAvailable = false;
    bool hasSelection = false;
    bool clipboardOffersPicture = false;
};

/// Which of them are. The paste entries share one rule, and so do the two that paste from a file.
struct EditEntries {
    bool undo = false;
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool pasteFromFile = false;

    static constexpr EditEntries enabledIn(const EditState& state) {
        return {.undo = state.undoAvailable,
                .cut = state.hasSelection && state.imageLoaded,
                .copy = state.imageLoaded,
                .paste = state.imageLoaded && state.clipboardOffersPicture,
                .pasteFromFile = state.imageLoaded};
    }
};

} // namespace ovrano
