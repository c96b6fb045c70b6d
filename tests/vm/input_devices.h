// Lists the connected input devices and reads their properties.
//
// Thread:  one.
// Errors:  a query for a missing device or property returns an empty result. A device or clone that
//          does not appear in time fails the test.
#pragma once

#include "recorded_pad.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

// Returns the event nodes of all devices with this name that udev has initialised.
std::vector<std::filesystem::path> nodesNamed(const std::string& name);

// Waits until udev has initialised a device with this name whose node is not `except`.
std::optional<std::filesystem::path> waitForNode(const std::string& name,
                                                 const std::filesystem::path& except = {});

// Waits until the node is gone.
bool waitForNoNode(const std::filesystem::path& node);

// Returns the event nodes of touchpad clones, sorted by number.
std::vector<std::filesystem::path> cloneNodes();

// Waits until udev has initialised a clone that is not in `except`. Returns an empty path on
// time-out.
std::filesystem::path waitForClone(const std::vector<std::filesystem::path>& except = {});

// Waits until the number of clones is `count`.
bool waitForCloneCount(std::size_t count);

// Reads all properties of the device.
PadShape shapeOf(const std::filesystem::path& node);
std::string physicalPathOf(const std::filesystem::path& node);

// Returns udev's property of the device.
std::optional<std::string> udevProperty(const std::filesystem::path& node, const char* name);

} // namespace glidemap::test
