// Helpers for contract tests. The compiler compares a function's signature, but only a run can
// check that the function exists, because the system sets the address of a missing function to
// null.
#pragma once

namespace glidemap::test {

// The signature must match exactly: no conversion takes place.
template <typename Signature>
bool isThere(Signature* function) {
    return function != nullptr;
}

} // namespace glidemap::test
