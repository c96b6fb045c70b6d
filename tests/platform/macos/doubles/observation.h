// Key-value observers.
#pragma once

#include <cstddef>

namespace glidemap::doubles {

// Returns how many observers were not removed, as far as the system reports them, and removes them
// from the fakes.
std::size_t forgetObservations();

} // namespace glidemap::doubles
