#include "bench/allocation_count.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace glidemap::bench {

namespace {

thread_local std::int64_t count = 0;

void* allocate(std::size_t size) noexcept {
    ++count;
    return std::malloc(size == 0 ? 1 : size);
}

void* allocateAligned(std::size_t size, std::align_val_t alignment) noexcept {
    ++count;
    const auto unit = static_cast<std::size_t>(alignment);
    return std::aligned_alloc(unit, (size + unit - 1) / unit * unit);
}

void* orThrow(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

} // namespace

std::int64_t allocationsOfThisThread() {
    return count;
}

} // namespace glidemap::bench

using glidemap::bench::allocate;
using glidemap::bench::allocateAligned;
using glidemap::bench::orThrow;

// The std::nothrow forms are replaced because library algorithms use them for their buffers. The
// library implements the array forms with the functions below, so arrays are counted, too.
void* operator new(std::size_t size) {
    return orThrow(allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return orThrow(allocateAligned(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment,
                   const std::nothrow_t& /*tag*/) noexcept {
    return allocateAligned(size, alignment);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    std::free(memory);
}
