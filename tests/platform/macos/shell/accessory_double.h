// Records the shell's calls to the system, in order.
#pragma once

#include <string>
#include <vector>

namespace glidemap::test {

std::vector<std::string>& asked();

} // namespace glidemap::test
