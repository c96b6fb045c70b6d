// Derives an application's name from the identifiers of a window without a desktop entry.
//
// Thread:  any.
// Errors:  none. Text that is not UTF-8 is read as Latin-1, control characters are removed, and
//          text longer than any valid identifier is truncated.
#pragma once

#include <string>
#include <string_view>

namespace glidemap {

// Returns the window's identifier in a form that is safe to store and display.
std::string cleanIdentifier(std::string_view text);

// Examples: "my-tool" → "My Tool", "org.example.Viewer" → "Viewer".
std::string nameFromIdentifier(std::string_view identifier);

// Returns the last component of a reverse-DNS name, or an empty text for other names.
std::string_view lastComponent(std::string_view identifier);

} // namespace glidemap
