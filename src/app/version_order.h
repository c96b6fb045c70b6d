// Which of two versions is newer, where versions are numbers between dots: 1.10 is newer than 1.9.
//
// Forgiving on purpose: whoever publishes a version may write it as they like. Empty pieces do not
// count, missing ones are 0, and so is a piece that is no number of 64 bits ("3-beta", "v1"). So
// 1.2 and 1.2.0 are the same, and 2.0-beta is 2.0.
//
// A text that has more than 64 characters, or a control character, is never newer: it would be shown.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <string_view>

namespace glidemap {

// Strictly.
bool isNewerVersion(std::string_view version, std::string_view other);

} // namespace glidemap
