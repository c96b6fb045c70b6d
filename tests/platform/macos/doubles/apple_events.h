// Sends Apple events to the program.
#pragma once

namespace glidemap::doubles {

// Sends the event of opening the program again. Returns whether a handler exists.
bool sendReopen();

// Sends the event of a logout. Returns whether a handler exists.
bool sendQuit();

} // namespace glidemap::doubles
