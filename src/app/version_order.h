// Compares versions, which are numbers separated by dots: 1.10 is newer than 1.9.
//
// Lenient on purpose, because publishers write versions in many forms. Empty pieces are skipped.
// Missing pieces are 0, and so is a piece that is not a 64-bit number ("3-beta", "v1"). So 1.2
// equals 1.2.0, and 2.0-beta equals 2.0.
//
// A version is displayed, so one with more than 64 characters or a control character is never
// newer.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <string_view>

namespace glidemap {

// Returns false for equal versions.
bool isNewerVersion(std::string_view version, std::string_view other);

} // namespace glidemap
