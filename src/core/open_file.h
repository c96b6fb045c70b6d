// A file descriptor that is closed when its scope ends, and system calls that a signal does not
// stop.
//
// Thread:  any.
#pragma once

#include <unistd.h>

#include <cerrno>

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
    explicit OpenFile(int opened) : file(opened) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (file != -1) {
            close(file);
        }
    }

    explicit operator bool() const { return file != -1; }
    int descriptor() const { return file; }

private:
    int file;
};

} // namespace glidemap
