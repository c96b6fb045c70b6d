// Waits for changes that other programs make to files, without polling.
//
// Thread:  one.
// Errors:  a time-out returns false.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace glidemap::test {

// Checks the condition now, and again whenever a watched file or folder changes, until the
// condition holds.
bool waitForChanges(const std::vector<std::filesystem::path>& watched,
                    const std::function<bool()>& condition);

} // namespace glidemap::test
