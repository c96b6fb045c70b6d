// Checks whether a display is available. Without one, Qt would abort the program when it connects.
//
// Thread:  any.
// Errors:  none; a display that refuses the connection counts as missing.
#pragma once

namespace glidemap {

bool hasDisplay();

} // namespace glidemap
