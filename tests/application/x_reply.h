// Owns a reply of the X server and frees it.
#pragma once

#include <cstdlib>
#include <memory>

namespace glidemap::test {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template <typename Type>
using Reply = std::unique_ptr<Type, FreeReply>;

} // namespace glidemap::test
