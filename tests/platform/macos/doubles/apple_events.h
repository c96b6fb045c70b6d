// Sends Apple events to the program.
#pragma once

namespace glidemap::doubles {

// Sends the reopen event. Returns whether a handler exists.
bool sendReopen();

// Sends the quit event of a logout. Returns whether a handler exists.
bool sendQuit();

} // namespace glidemap::doubles
