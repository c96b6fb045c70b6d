// A named pipe from which a launched program reads. When the test ends, the pipe closes, so that
// the program cannot outlive the test.
//
// Thread:  the test's.
// Owner:   a test.
// Errors:  a pipe that cannot be created fails the test.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace glidemap::test {

class Leash {
public:
    explicit Leash(std::filesystem::path at) : path(std::move(at)) {
        EXPECT_EQ(mkfifo(path.c_str(), 0600), 0) << path;
        descriptor = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    }
    Leash(const Leash&) = delete;
    Leash& operator=(const Leash&) = delete;
    ~Leash() {
        close(descriptor);
        std::filesystem::remove(path);
    }

    const std::filesystem::path path;

private:
    int descriptor = -1;
};

} // namespace glidemap::test
