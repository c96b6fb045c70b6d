// How a contract is written: a function's signature, compared by the compiler, and whether it is
// there, which only a run can tell, because the system leaves a newer function's address null.
#pragma once

namespace glidemap::contract {

// The type is the caller's word, letter by letter: no conversion is made.
template <typename Signature>
bool isThere(Signature* function) {
    return function != nullptr;
}

} // namespace glidemap::contract
