// Helpers for contract tests. The compiler compares a function's signature. Only a run can check
// that the function exists, because the system leaves the address of a newer function null.
#pragma once

namespace glidemap::contract {

// The signature must match exactly: no conversion takes place.
template <typename Signature>
bool isThere(Signature* function) {
    return function != nullptr;
}

} // namespace glidemap::contract
