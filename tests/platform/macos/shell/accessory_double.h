// Records the system calls of the shell, in order.
#pragma once

#include <string>
#include <vector>

namespace glidemap::test {

std::vector<std::string>& asked();

} // namespace glidemap::test
