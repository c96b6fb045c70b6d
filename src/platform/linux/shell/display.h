// Whether there is a screen to show anything on. The toolkit aborts a program that tries without.
//
// Thread:  any.
// Errors:  a display that is named and does not let the program in is none.
#pragma once

namespace glidemap {

bool hasDisplay();

} // namespace glidemap
