// Finds accessible names that are not Chinese in a Chinese interface.
#pragma once

#include "accessibility.h"

#include <string>
#include <vector>

namespace glidemap::application {

// Returns the names and descriptions with Latin letters, except those that Chinese texts also use:
// proper names, "App", and the keys of a shortcut.
std::vector<std::string> notInChinese(const Controls& controls);

} // namespace glidemap::application
