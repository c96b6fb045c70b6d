// A file descriptor that closes at the end of its scope, and system calls that retry on EINTR.
//
// Thread:  any.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace glidemap {

template <typename Call>
auto retried(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

class OpenFile {
public:
    OpenFile() = default;
    explicit OpenFile(int opened) : file(opened) {}
    OpenFile(OpenFile&& other) noexcept : file(std::exchange(other.file, -1)) {}
    OpenFile& operator=(OpenFile&& other) noexcept {
        std::swap(file, other.file);
        return *this;
    }
    ~OpenFile() {
        if (file >= 0) {
            close(file);
        }
    }

    explicit operator bool() const { return file >= 0; }

    // Returns a negative value if no file is open.
    int descriptor() const { return file; }

private:
    int file = -1;
};

} // namespace glidemap
