// Owns a file descriptor.
#pragma once

#include <unistd.h>

#include <utility>

namespace glidemap {

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int opened) : number(opened) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number, other.number);
        return *this;
    }
    ~FileDescriptor() {
        if (number >= 0) {
            close(number);
        }
    }

    int get() const { return number; }
    bool isOpen() const { return number >= 0; }

private:
    int number = -1;
};

} // namespace glidemap
