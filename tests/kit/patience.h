// How long a test waits for what must happen. Nothing waits this long unless it has failed, so it is
// generous: a machine that compiles or runs other tests may be ten times slower than an idle one.
#pragma once

#include <chrono>

namespace glidemap::test {

inline constexpr std::chrono::seconds patience{120};

} // namespace glidemap::test
