// Compares versions, which are numbers separated by dots: 1.10 is newer than 1.9.
//
// The comparison is lenient, because publishers write versions in many forms. Empty pieces are
// skipped. Missing pieces count as 0, and so do pieces that are not 64-bit numbers ("3-beta",
// "v1"). So 1.2 equals 1.2.0, and 2.0-beta equals 2.0.
//
// A version with more than 64 characters or with a control character is never newer, because the
// program would have to display it.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <string_view>

namespace glidemap {

// Whether `version` is newer than `other`; false if they are equal.
bool isNewerVersion(std::string_view version, std::string_view other);

} // namespace glidemap
