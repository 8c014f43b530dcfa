#pragma once

#include "platform/runtimeerror.h"

#include <new>
#include <utility>

namespace ovrano {

/// Like skipOnError, but tells whether the step failed for want of memory, which must not pass in silence.
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

/// Like skipOnError, but throws RuntimeError error::OutOfMemory when memory ran short.
template<typename Step>
void skipUnlessMemory(Step&& step) {
    if (lacksMemory(std::forward<Step>(step)))
        throw RuntimeError(error::OutOfMemory);
}

} // namespace ovrano
