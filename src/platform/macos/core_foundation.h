// Owns what a Core Foundation function with Create or Copy in its name has made, and releases it
// once.
//
// Thread:  any; what is owned has its own rule.
// Errors:  a function that could not make it has answered null, and so does get(); null is never
//          released, which the system would not survive.
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
