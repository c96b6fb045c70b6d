// Waits for changes that other programs make to files, without polling.
//
// Thread:  one.
// Errors:  a time-out returns false.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace glidemap::vm {

// Checks the condition now, and again at each change of a watched file or in a watched folder,
// until it holds.
bool waitForChanges(const std::vector<std::filesystem::path>& watched,
                    const std::function<bool()>& condition);

} // namespace glidemap::vm
