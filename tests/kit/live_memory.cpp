#include "kit/live_memory.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBytes = 0;
std::atomic<std::size_t> allocations = 0;

void* counted(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    liveBytes += malloc_usable_size(memory);
    ++allocations;
    return memory;
}

void release(void* memory) {
    if (memory != nullptr) {
        liveBytes -= malloc_usable_size(memory);
        std::free(memory);
    }
}

} // namespace

namespace glidemap::kit {

std::size_t liveMemory() {
    return liveBytes;
}

std::size_t allocationCount() {
    return allocations;
}

} // namespace glidemap::kit

// The array and nothrow forms come here by themselves.
void* operator new(std::size_t size) {
    return counted(std::malloc(size != 0 ? size : 1));
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    const auto align = static_cast<std::size_t>(alignment);
    return counted(std::aligned_alloc(align, (size + align - 1) / align * align));
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept {
    release(memory);
}
