// What to call a window's application when no desktop entry is known for it.
//
// Thread:  any.
// Errors:  none. Text that is not UTF-8 is read as Latin-1, control characters go, and what is
//          longer than any honest identifier is cut.
#pragma once

#include <string>
#include <string_view>

namespace glidemap {

// What a window calls itself, fit to be stored and shown.
std::string cleanIdentifier(std::string_view text);

// "my-tool" → "My Tool", "org.example.Viewer" → "Viewer".
std::string nameFromIdentifier(std::string_view identifier);

// The last component of a reverse-DNS name, or nothing if it is none.
std::string_view lastComponent(std::string_view identifier);

} // namespace glidemap
