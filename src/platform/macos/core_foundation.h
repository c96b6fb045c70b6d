// Owns an object returned by a Core Foundation function with Create or Copy in its name, and
// releases the object once.
//
// Thread:  any; the owned object may have stricter rules.
// Owner:   a single variable: this type is movable but not copyable.
// Errors:  if the function failed, get() returns null. Null is not released, because
//          CFRelease(null) would crash.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace glidemap {

template <typename Reference>
class Owned {
public:
    Owned() = default;
    explicit Owned(Reference created) : reference(created) {}
    Owned(Owned&& other) noexcept : reference(std::exchange(other.reference, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(reference, other.reference);
        other.reset();
        return *this;
    }
    ~Owned() { reset(); }

    void reset() {
        if (reference != nullptr) {
            CFRelease(std::exchange(reference, nullptr));
        }
    }

    Reference get() const { return reference; }
    explicit operator bool() const { return reference != nullptr; }

private:
    Reference reference = nullptr;
};

} // namespace glidemap
