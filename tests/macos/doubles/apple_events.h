// Sends Apple events to the program.
#pragma once

namespace glidemap::doubles {

// As when the user opens the program again. Returns whether the program has a handler for it.
bool sendReopen();

// As when the user logs out. Returns whether the program has a handler for it.
bool sendQuit();

} // namespace glidemap::doubles
