// The input devices that there are, and what they say of themselves.
//
// Thread:  one.
// Errors:  what is not there reads as nothing.
#pragma once

#include "recorded_pad.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::vm {

// The event nodes of all devices with this name.
std::vector<std::filesystem::path> nodesNamed(const std::string& name);

// Waits until there is a device with this name whose node is not `except`, and udev has finished
// with it.
std::optional<std::filesystem::path> waitForNode(const std::string& name,
                                                 const std::filesystem::path& except = {});

// Waits until the node is gone.
bool waitForNoNode(const std::filesystem::path& node);

// The event nodes of the clones of touchpads, oldest first.
std::vector<std::filesystem::path> cloneNodes();

// Waits until udev has finished with a clone that is none of these. Empty if there is none in time.
std::filesystem::path waitForClone(const std::vector<std::filesystem::path>& except = {});

// Waits until there are so many.
bool waitForCloneCount(std::size_t count);

// Everything that a device says of itself.
PadShape shapeOf(const std::filesystem::path& node);
std::string physicalPathOf(const std::filesystem::path& node);

// What udev has found out about it.
std::optional<std::string> udevProperty(const std::filesystem::path& node, const char* name);

} // namespace glidemap::vm
