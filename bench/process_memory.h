// The memory of this process.
//
// Units:   kibibytes.
#pragma once

namespace glidemap::bench {

struct ProcessMemory {
    long resident = 0; // all resident pages, including pages shared with other programs
    long privatePages = 0;
    long heapInUse = 0; // allocated and not freed
};

ProcessMemory processMemory();

} // namespace glidemap::bench
