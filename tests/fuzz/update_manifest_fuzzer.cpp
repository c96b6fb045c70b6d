// Parses arbitrary bytes as an update manifest, and as two versions. At most one of the two
// versions may be newer than the other, and no version may be newer than itself.
#include "app/update_manifest.h"
#include "app/version_order.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using glidemap::isNewerVersion;

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void checkOrder(std::string_view one, std::string_view other) {
    check(!isNewerVersion(one, one));
    check(!(isNewerVersion(one, other) && isNewerVersion(other, one)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto version = glidemap::versionInManifest(text)) {
        check(text.find('{') != std::string_view::npos);
        checkOrder(*version, "1.4.2");
    }
    checkOrder(text.substr(0, size / 2), text.substr(size / 2));
    return 0;
}
