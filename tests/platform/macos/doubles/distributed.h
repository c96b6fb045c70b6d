// Simulates notifications that other processes post while this program is not frontmost.
#pragma once

namespace glidemap::test {

// Creates the shared center, which lives until the program exits.
void makeDistributedCenter();

// Like the system, delivers only to observers that do not wait until the program is frontmost.
void postDistributed(const char* name);

} // namespace glidemap::test
