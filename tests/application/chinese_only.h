// Finds accessible texts that are not Chinese in a Chinese interface.
#pragma once

#include "accessibility.h"

#include <string>
#include <vector>

namespace glidemap::test {

// Returns "role: text" for each accessible name, label, description and text with Latin letters.
// Ignores words that the Chinese interface may contain, such as proper names, "App" and the keys of
// a shortcut.
std::vector<std::string> notInChinese(const Controls& controls);

} // namespace glidemap::test
