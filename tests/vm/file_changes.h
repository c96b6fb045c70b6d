// Waits for what other programs do to files, without looking again and again.
//
// Thread:  one.
// Errors:  what did not come in time is answered false.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace glidemap::vm {

// Asks now, and again whenever one of the files, or anything in one of the folders, has changed,
// until the condition holds.
bool waitForChanges(const std::vector<std::filesystem::path>& watched,
                    const std::function<bool()>& condition);

} // namespace glidemap::vm
