#pragma once

#include "platform/dialogs.h"

#include <QString>

#include <vector>

namespace ovrano::model {

/// Something that a user does. What the numbers of a step mean stands beside its kind.
enum class Kind {
    Open,           // file to choose, file to save to first
    New,            // width, height, colour or -1 for the one proposed, file to save to first
    NewCancelled,   // file to save to first
    NewClosed,      // file to save to first; the dialog's close box
    Save,           // file, row of the type list: 1 BMP, 2 JPEG, 6 GIF
    Drop,           // file dropped on the window, file to save to first
    TextDialog,     // 1 two-coloured or 2 circular; 1 for applying (the first one only)
    Close,          // the question is answered with Cancel
    Undo,           // 0 by the menu, 1 by the button, 2 by the key
    Background,     // colour, or -1 for none
    ZoneButton,     //
    ZoneEntry,      //
    PickerButton,   //
    PickerEntry,    //
    Gesture,        // 1 for the left button; 0, or a Flaw; then x, y of each point
    Space,          //
    Arrow,          // pixels to the right, pixels down: 1 or 10, either way
    Enter,          //
    Copy,           // 1 by the key
    Cut,            // 1 by the key
    Paste,          // 0 opaque, 1 transparent, 2 opaque by the key
    PasteFile,      // file, 1 for transparent
    PasteNew,       //
    ClearClipboard, //
    ForeignText,    // another program copies a text
    ForeignPicture, // another program copies a picture: its file
    Stamp,          // text
    OpenMenu,       // 0 file, 1 edit, 2 tools, 3 text
    OneColourText,  //
    Scroll,         // 0 horizontal or 1 vertical, value
    Push,           // with the middle button: pixels to the right, pixels down
    TextColour,     // colour, or -1 for none
};

/// How a gesture differs from pressing, moving and letting go.
enum Flaw { NoFlaw, LostRelease, DoubleClick, SecondButton };

/// A file that is not chosen: the dialog is cancelled.
inline constexpr int NoFile = -1;

inline constexpr Kind LastKind = Kind::TextColour;

struct Step {
    Kind kind = Kind::OpenMenu;
    std::vector<int> numbers = {};
    Answer reply = Answer::No; // to the question that comes up
};

/// Whether it is the key of a menu's entry.
bool isCommandKey(const Step& step);
/// Whether the keyboard stays in the picture.
bool isOnPicture(const Step& step);

QString nameOf(Kind kind);
/// As it stands in C++.
QString sourceOf(const Step& step);
/// A whole test function.
QString testOf(const std::vector<Step>& steps);

} // namespace ovrano::model
