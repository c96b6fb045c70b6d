// An open file of the system's, which is closed with its owner.
#pragma once

#include <unistd.h>

namespace glidemap {

class Descriptor {
public:
    // Negative where it could not be opened.
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number >= 0) {
            close(number);
        }
    }

    const int number;
};

} // namespace glidemap
