// Posts notifications from other processes to a program that is not frontmost.
#pragma once

namespace glidemap::test {

// Creates the shared center, which lives until the program exits.
void makeDistributedCenter();

// Like the system, delivers only to observers that do not wait until the program is frontmost.
void postDistributed(const char* name);

} // namespace glidemap::test
