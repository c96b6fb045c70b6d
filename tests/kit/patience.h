// The time limit for an expected event. A test waits this long only if it fails, so the limit is
// generous: a machine that compiles or runs other tests may be ten times slower than an idle one.
#pragma once

#include <chrono>

namespace glidemap::test {

inline constexpr std::chrono::seconds patience{120};

} // namespace glidemap::test
