// Sends Apple events to the program.
#pragma once

namespace glidemap::test {

// Sends the reopen event. Returns whether a handler exists.
bool sendReopen();

// Sends the quit event of a logout. Returns whether a handler exists.
bool sendQuit();

} // namespace glidemap::test
