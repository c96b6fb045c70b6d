// How much memory the process holds.
//
// Units:   kibibytes.
#pragma once

namespace glidemap::bench {

struct ProcessMemory {
    long resident = 0; // all its pages in memory, those shared with other programs too
    long privatePages = 0;
    long heapInUse = 0; // handed out by the allocator
};

ProcessMemory processMemory();

} // namespace glidemap::bench
