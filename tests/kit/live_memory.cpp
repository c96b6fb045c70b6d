#include "kit/live_memory.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> liveBytes = 0;
std::atomic<std::size_t> peakBytes = 0;
std::atomic<std::size_t> allocations = 0;

void notePeak(std::size_t live) {
    std::size_t peak = peakBytes;
    while (live > peak && !peakBytes.compare_exchange_weak(peak, live)) {
    }
}

// A header in front of every allocation stores its size, because not every C library reports sizes.
// The header is as wide as the alignment, so that the allocation stays aligned.
std::size_t headerSize(std::size_t alignment) {
    return std::max(alignment, alignof(std::max_align_t));
}

void* counted(std::size_t size, std::size_t alignment) {
    const std::size_t header = headerSize(alignment);
    const std::size_t whole = (header + size + header - 1) / header * header;
    auto* const start =
        whole > size ? static_cast<std::byte*>(std::aligned_alloc(header, whole)) : nullptr;
    if (start == nullptr) {
        throw std::bad_alloc();
    }
    std::byte* const memory = start + header;
    new (memory - sizeof(std::size_t)) std::size_t(size);
    notePeak(liveBytes += size);
    ++allocations;
    return memory;
}

void release(void* memory, std::size_t alignment) {
    if (memory != nullptr) {
        auto* const bytes = static_cast<std::byte*>(memory);
        liveBytes -= *std::launder(reinterpret_cast<std::size_t*>(bytes - sizeof(std::size_t)));
        std::free(bytes - headerSize(alignment));
    }
}

constexpr std::size_t ordinary = alignof(std::max_align_t);

} // namespace

namespace glidemap::test {

std::size_t liveMemory() {
    return liveBytes;
}

std::size_t peakLiveMemory() {
    return peakBytes;
}

void resetPeakLiveMemory() {
    peakBytes = liveBytes.load();
}

std::size_t allocationCount() {
    return allocations;
}

} // namespace glidemap::test

// The array forms are replaced, too, because the sanitizers replace them with versions that do not
// write the header.
void* operator new[](std::size_t size) {
    return counted(size, ordinary);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return counted(size, ordinary);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
    return operator new(size, tag);
}
void operator delete[](void* memory) noexcept {
    release(memory, ordinary);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory, ordinary);
}
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    release(memory, ordinary);
}
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
    release(memory, ordinary);
}
void* operator new(std::size_t size) {
    return counted(size, ordinary);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return counted(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept {
    release(memory, ordinary);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory, ordinary);
}
void operator delete(void* memory, std::align_val_t alignment) noexcept {
    release(memory, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory, std::size_t, std::align_val_t alignment) noexcept {
    release(memory, static_cast<std::size_t>(alignment));
}
