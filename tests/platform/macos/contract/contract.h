// Helpers for contract tests. The compiler checks that a function has the expected signature, but
// not that the system has the function: the address of a missing function is null at run time.
#pragma once

namespace glidemap::test {

// The signature must match exactly: no conversion takes place.
template <typename Signature>
bool isThere(Signature* function) {
    return function != nullptr;
}

} // namespace glidemap::test
