// Who observes values under a key.
#pragma once

#include <cstddef>

namespace glidemap::doubles {

// How many observers were not removed, as far as the system tells. Where the doubles know them, none
// is known any more.
std::size_t forgetObservations();

} // namespace glidemap::doubles
