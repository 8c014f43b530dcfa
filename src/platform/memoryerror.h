#pragma once

#include "platform/runtimeerror.h"

#include <new>
#include <utility>

namespace ovrano {

/// As skipOnError, for those that do not go by in silence when there is not enough memory: tells whether that
/// was why the step failed.
template<typename Step>
bool lacksMemory(Step&& step) {
    try {
        step();
    } catch (const RuntimeError& caught) {
        return caught.number() == error::OutOfMemory;
    } catch (const std::bad_alloc&) {
        return true;
    }
    return false;
}

/// As skipOnError, but throws RuntimeError 7 when memory ran short.
template<typename Step>
void skipUnlessMemory(Step&& step) {
    if (lacksMemory(std::forward<Step>(step)))
        throw RuntimeError(error::OutOfMemory);
}

} // namespace ovrano
