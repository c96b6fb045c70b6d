// A fake event node of a touchpad, implemented as a named pipe. Only this process can use it as a
// device, because the program replaces ioctl() and handles the evdev requests itself. All compared
// readers pay the same for a read, which is the cost of reading from a pipe.
//
// Units:   events as in the kernel; times on the monotonic clock.
// Thread:  construct it before any reader; write() on one thread.
// Owner:   a benchmark; only one node at a time, because the replies are global to the process.
// Errors:  throws std::system_error if the pipe cannot be created.
#pragma once

#include "core/open_file.h"

#include <linux/input.h>

#include <filesystem>
#include <span>

namespace glidemap::bench {

class FakeNode {
public:
    FakeNode();
    FakeNode(const FakeNode&) = delete;
    FakeNode& operator=(const FakeNode&) = delete;
    ~FakeNode();

    const std::filesystem::path& path() const { return node; }

    // Writes one report with its synchronisation event, stamped with the current time. Drops the
    // events that the reader has masked.
    void write(std::span<const input_event> events);

private:
    std::filesystem::path folder;
    std::filesystem::path node;
    OpenFile writer;
};

} // namespace glidemap::bench
