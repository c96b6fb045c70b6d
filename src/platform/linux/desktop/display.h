// Checks whether a display is available. Qt aborts a program that connects without one.
//
// Thread:  any.
// Errors:  none; a display that refuses the connection counts as missing.
#pragma once

namespace glidemap {

bool hasDisplay();

} // namespace glidemap
