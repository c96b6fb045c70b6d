// Reads consecutive values from libFuzzer's bytes.
//
// Thread:  one.
// Owner:   a fuzzer, during one run. The bytes outlive it.
// Errors:  none; values after the end of the bytes are zero.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace glidemap::fuzz {

class Input {
public:
    explicit Input(std::span<const std::uint8_t> given) : bytes(given) {}

    bool isOver() const { return bytes.empty(); }

    std::uint8_t byte() { return value<std::uint8_t>(); }
    double fraction() { return byte() / 255.0; }

    template <typename Value>
    Value value() {
        Value result{};
        const std::size_t size = std::min(sizeof result, bytes.size());
        if (size > 0) {
            std::memcpy(&result, bytes.data(), size);
        }
        bytes = bytes.subspan(size);
        return result;
    }

private:
    std::span<const std::uint8_t> bytes;
};

} // namespace glidemap::fuzz
