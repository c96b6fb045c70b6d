// Finds key-value observers that were not removed.
#pragma once

#include <cstddef>

namespace glidemap::test {

// Returns the number of observers that were not removed, and makes the fakes forget them. The real
// system reports only whether an object has observers: on a Mac, the function returns at most 1 and
// removes no observer.
std::size_t forgetObservations();

} // namespace glidemap::test
