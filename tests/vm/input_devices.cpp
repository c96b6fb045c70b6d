#include "input_devices.h"

#include "file_changes.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <libudev.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <memory>
#include <set>
#include <utility>

namespace glidemap::test {

namespace {

const std::filesystem::path nodeFolder = "/dev/input";
const std::filesystem::path udevRecords = "/run/udev/data";
const std::filesystem::path udevQueue = "/run/udev/queue"; // exists while udev is busy
constexpr const char* clonePath = "glidemap/clone/";

// Opens a device to query its properties.
class Question {
public:
    explicit Question(const std::filesystem::path& node)
        : file(open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;
    ~Question() { close(file); }

    template <typename Answer>
    bool ask(unsigned long request, Answer& answer) const {
        return ioctl(file, request, &answer) >= 0;
    }

    std::string text(unsigned long request) const {
        std::array<char, 256> answer{};
        return ask(request, answer) ? answer.data() : "";
    }

    std::set<int> bits(unsigned long request, int count) const {
        std::array<unsigned char, KEY_CNT / 8> answer{};
        std::set<int> result;
        ask(request, answer);
        for (int bit = 0; bit < count; ++bit) {
            if ((answer[static_cast<std::size_t>(bit) / 8] >> (bit % 8) & 1) != 0) {
                result.insert(bit);
            }
        }
        return result;
    }

private:
    int file;
};

std::string attributeOf(const std::filesystem::path& inSys, const char* attribute) {
    std::ifstream stream(inSys / "device" / attribute);
    std::string value;
    std::getline(stream, value);
    return value;
}

std::string nameOf(const std::filesystem::path& inSys) {
    return attributeOf(inSys, "name");
}

// Returns whether udev has written its record of the device, which is udev's last step before it
// announces the device. A desktop opens a device only after that. An older device with the same
// number may have left a record, so the function compares times.
bool hasUdevRecord(const std::filesystem::path& inSys) {
    namespace fs = std::filesystem;
    std::ifstream stream(inSys / "dev");
    std::string number;
    std::getline(stream, number);
    std::error_code gone;
    const fs::file_time_type written = fs::last_write_time(udevRecords / ("c" + number), gone);
    if (gone) {
        return false;
    }
    const fs::file_time_type made = fs::last_write_time(nodeFolder / inSys.filename(), gone);
    return !gone && written >= made;
}

// Checks the condition whenever nodes or their udev records change, until the condition holds.
bool waitForNodes(const std::function<bool()>& condition) {
    std::error_code none;
    std::filesystem::create_directories(udevRecords, none);
    return waitForChanges({nodeFolder, udevRecords, udevQueue.parent_path()}, condition);
}

} // namespace

std::vector<std::filesystem::path> nodesNamed(const std::string& name) {
    std::vector<std::filesystem::path> nodes;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/class/input", error)) {
        if (entry.path().filename().string().starts_with("event") && nameOf(entry.path()) == name &&
            hasUdevRecord(entry.path())) {
            nodes.push_back(nodeFolder / entry.path().filename());
        }
    }
    std::ranges::sort(nodes);
    return nodes;
}

std::optional<std::filesystem::path> waitForNode(const std::string& name,
                                                 const std::filesystem::path& except) {
    std::vector<std::filesystem::path> nodes;
    const bool found = waitForNodes([&] {
        nodes = nodesNamed(name);
        std::erase(nodes, except);
        return !nodes.empty();
    });
    EXPECT_TRUE(found) << "device not found: \"" << name << "\"";
    return found ? std::optional(nodes.front()) : std::nullopt;
}

bool waitForNoNode(const std::filesystem::path& node) {
    return waitForNodes([&] { return !std::filesystem::exists(node); });
}

// Uses sysfs, because the driver would count a test that opens a clone as a reader.
std::vector<std::filesystem::path> cloneNodes() {
    std::vector<std::filesystem::path> nodes;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/sys/class/input", none)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("event") && attributeOf(entry.path(), "phys").starts_with(clonePath)) {
            nodes.push_back(nodeFolder / name);
        }
    }
    // Sorts by number: event9 comes before event10.
    std::ranges::sort(nodes, {}, [](const std::filesystem::path& node) {
        return std::pair(node.native().size(), node.native());
    });
    return nodes;
}

// Waits for udev's announcement, as a desktop does. Before the announcement, udev's rules run
// programs that open and close the clone.
std::filesystem::path waitForClone(const std::vector<std::filesystem::path>& except) {
    std::filesystem::path found;
    const bool isThere = waitForNodes([&] {
        for (const std::filesystem::path& node : cloneNodes()) {
            if (std::ranges::find(except, node) == except.end() &&
                hasUdevRecord("/sys/class/input" / node.filename()) &&
                !std::filesystem::exists(udevQueue) &&
                udevProperty(node, "ID_INPUT_TOUCHPAD") == "1") {
                found = node;
                return true;
            }
        }
        return false;
    });
    EXPECT_TRUE(isThere) << "no clone of a touchpad exists";
    return found;
}

bool waitForCloneCount(std::size_t count) {
    const bool areThere = waitForNodes([&] { return cloneNodes().size() == count; });
    EXPECT_TRUE(areThere) << "found " << cloneNodes().size() << " clones, not " << count;
    return areThere;
}

std::string physicalPathOf(const std::filesystem::path& node) {
    return Question(node).text(EVIOCGPHYS(256));
}

PadShape shapeOf(const std::filesystem::path& node) {
    const Question device(node);
    PadShape shape;
    input_id id{};
    device.ask(EVIOCGID, id);
    shape.name = device.text(EVIOCGNAME(256));
    shape.bus = id.bustype;
    shape.vendor = id.vendor;
    shape.product = id.product;
    shape.version = id.version;
    shape.properties = device.bits(EVIOCGPROP(INPUT_PROP_CNT / 8), INPUT_PROP_CNT);
    shape.keys = device.bits(EVIOCGBIT(EV_KEY, KEY_CNT / 8), KEY_CNT);
    for (const int code : device.bits(EVIOCGBIT(EV_ABS, ABS_CNT / 8), ABS_CNT)) {
        input_absinfo axis{};
        device.ask(static_cast<unsigned long>(EVIOCGABS(code)), axis);
        shape.axes[code] = {axis.minimum, axis.maximum, axis.flat, axis.resolution, axis.fuzz};
    }
    return shape;
}

std::optional<std::string> udevProperty(const std::filesystem::path& node, const char* name) {
    struct stat status {};
    if (stat(node.c_str(), &status) != 0) {
        return std::nullopt;
    }
    const std::unique_ptr<udev, decltype(&udev_unref)> context(udev_new(), &udev_unref);
    const std::unique_ptr<udev_device, decltype(&udev_device_unref)> device(
        udev_device_new_from_devnum(context.get(), 'c', status.st_rdev), &udev_device_unref);
    const char* value =
        device != nullptr ? udev_device_get_property_value(device.get(), name) : nullptr;
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

} // namespace glidemap::test
