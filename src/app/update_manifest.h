// The update host's manifest: one JSON object, of which one key is read.
//
//   {"version": "1.4.2"}
//
// All other keys are ignored. The last value of a repeated key counts. The text is UTF-8,
// optionally with a byte-order mark; text after the object is invalid.
//
// Memory:  the version and one token of the text, at any depth of nesting.
// Thread:  any.
// Errors:  returns nullopt for an invalid manifest; never throws.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Returns the version unchanged.
std::optional<std::string> versionInManifest(std::string_view text);

} // namespace glidemap
