// How long a test waits for a required event. A wait takes this long only if the test fails, so the
// limit is generous: a machine that compiles or runs other tests may be ten times slower than an
// idle one.
#pragma once

#include <chrono>

namespace glidemap::test {

inline constexpr std::chrono::seconds patience{120};

} // namespace glidemap::test
