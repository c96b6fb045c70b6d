// Finds key-value observers that were not removed.
#pragma once

#include <cstddef>

namespace glidemap::test {

// Returns how many observers were not removed, as far as the system reports them, and removes them
// from the fakes.
std::size_t forgetObservations();

} // namespace glidemap::test
