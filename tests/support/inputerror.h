#pragma once

#include <QString>

#include <stdexcept>

namespace ovrano::testing {

/// What a simulated user could not do: a key that is nowhere, a click that reached no window.
class InputError : public std::runtime_error {
public:
    explicit InputError(const QString& what)
        : std::runtime_error(what.toStdString()) {}
};

} // namespace ovrano::testing
