// What the update host publishes: one JSON object, of which one key is read.
//
//   {"version": "1.4.2"}
//
// Other keys are passed over, whatever they hold. Of a repeated key the last value counts. The text
// is UTF-8, a byte-order mark in front is allowed; nothing may follow the object.
//
// Memory:  the version and one token of the text; nesting may be as deep as it likes.
// Thread:  any.
// Errors:  what is no manifest has no version; nothing throws.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// As it is written.
std::optional<std::string> versionInManifest(std::string_view text);

} // namespace glidemap
