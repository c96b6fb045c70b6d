// Which of the names that a screen reader reads out are not Chinese in a Chinese interface.
#pragma once

#include "accessibility.h"

#include <string>
#include <vector>

namespace glidemap::application {

// Names and descriptions with Latin letters in them, other than those that Chinese has, too: proper
// names, "App", and the keys of a shortcut.
std::vector<std::string> notInChinese(const Controls& controls);

} // namespace glidemap::application
