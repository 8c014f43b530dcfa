#pragma once

#include <cstdlib>
#include <memory>

namespace ovrano::testing {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// An answer or an error of the X server, which the one who asked has to free.
template<typename Answer>
using Reply = std::unique_ptr<Answer, FreeReply>;

} // namespace ovrano::testing
