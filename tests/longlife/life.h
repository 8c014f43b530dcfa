#pragma once

#include "model/driver.h"

namespace ovrano::longlife {

/// A user who does the same all day: opens a picture, stamps a text, drags it about, takes that back, stamps
/// again and saves.
class Life {
public:
    Life();

    /// One round; no two in a row are alike. Gives what went wrong, or nothing.
    QString live(int round);

    /// How many files are where the pictures are: those that are saved over and over among them.
    int files() const;

private:
    void stampAndDrag(int round);

    model::Driver m_user;
};

} // namespace ovrano::longlife
