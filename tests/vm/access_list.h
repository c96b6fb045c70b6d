// Changes the access list of a device node as logind does: the node's mode bits still exclude
// others, and one more user may read and write.
//
// Thread:  any.
// Errors:  a failed change fails the test.
#pragma once

#include <sys/types.h>

#include <filesystem>

namespace glidemap::test {

void allow(const std::filesystem::path& node, uid_t user);
void withdraw(const std::filesystem::path& node);

} // namespace glidemap::test
