// An event node of a touchpad that only this process can open: a named pipe, for which this program answers the kernel's
// questions about a device. Reading it costs what reading a pipe costs, for every reader alike.
//
// Units:   events as the kernel's; times of the monotonic clock.
// Thread:  construction before any reader; write() on one thread.
// Owner:   a benchmark. One at a time: the answers are the process's.
// Errors:  a pipe that cannot be made throws std::system_error.
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

    // One report with its synchronisation, stamped with now. Drops the events that the reader has masked.
    void write(std::span<const input_event> events);

private:
    std::filesystem::path folder;
    std::filesystem::path node;
    OpenFile writer;
};

} // namespace glidemap::bench
