// Parses the manifest of the update host: a JSON object with a version.
//
//   {"version": "1.4.2"}
//
// All other keys are ignored. If the version is repeated, its last value is used. The text is
// UTF-8, optionally with a byte-order mark. Any text after the object makes the manifest invalid.
//
// Memory:  stores only the version and one token of the text, however deeply the values are nested.
// Thread:  any.
// Errors:  returns nullopt for an invalid manifest; never throws.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Returns the version exactly as it is in the manifest.
std::optional<std::string> versionInManifest(std::string_view text);

} // namespace glidemap
