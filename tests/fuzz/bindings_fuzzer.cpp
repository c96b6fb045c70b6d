// Decodes arbitrary bytes as a bindings file. Decoded bindings must be unchanged after encoding and
// decoding them, and encoding them again must produce the same bytes. A failure must have a
// printable reason.
#include "bindings/binding_json.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using glidemap::decodeBindings;
using glidemap::DecodingFailure;
using glidemap::encodeBindings;
using Bindings = std::vector<glidemap::GestureBinding>;

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkReason(std::string_view reason) {
    constexpr std::size_t longest = 250;
    check(!reason.empty() && reason.size() <= longest);
    for (const char character : reason) {
        check(character >= ' ' && character <= '~');
    }
}

void checkRoundTrip(const Bindings& bindings) {
    const std::string text = encodeBindings(bindings);
    const auto again = decodeBindings(text);
    const auto* const list = std::get_if<Bindings>(&again);
    check(list != nullptr && *list == bindings);
    check(encodeBindings(*list) == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto decoded = decodeBindings({reinterpret_cast<const char*>(data), size});
    if (const auto* const failure = std::get_if<DecodingFailure>(&decoded)) {
        checkReason(failure->reason);
    } else {
        checkRoundTrip(std::get<Bindings>(decoded));
    }
    return 0;
}
