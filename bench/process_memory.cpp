#include "bench/process_memory.h"

#include <malloc.h>

#include <fstream>
#include <string>

namespace glidemap::bench {

ProcessMemory processMemory() {
    constexpr std::size_t bytesInKibibyte = 1024;
    const auto heap = mallinfo2();
    ProcessMemory memory;
    memory.heapInUse = static_cast<long>((heap.uordblks + heap.hblkhd) / bytesInKibibyte);
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string word; rollup >> word;) {
        long size = 0;
        if (word == "Rss:" && rollup >> size) {
            memory.resident = size;
        } else if ((word == "Private_Clean:" || word == "Private_Dirty:") && rollup >> size) {
            memory.privatePages += size;
        }
    }
    return memory;
}

} // namespace glidemap::bench
