#include "drivers/evdev/udev_report.h"

#include "drivers/evdev/touchpad_judgement.h"
#include "drivers/evdev/udev_handles.h"

#include <fcntl.h>
#include <grp.h>
#include <libudev.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* uinputNode = "/dev/uinput";

// For the verb "read", returns "this user may read it", "this user may not read it (mode 0660,
// group input)", or a text with the reason if the node does not exist.
std::string access(const char* node, int mode, const std::string& verb) {
    if (faccessat(AT_FDCWD, node, mode, AT_EACCESS) == 0) {
        return "this user may " + verb + " it";
    }
    struct stat status {};
    if (stat(node, &status) != 0) {
        return std::string("it is not there: ") + std::generic_category().message(errno);
    }
    std::array<char, 16> octal{};
    std::snprintf(octal.data(), octal.size(), "%04o",
                  static_cast<unsigned>(status.st_mode & 07777));
    const group* owners = getgrgid(status.st_gid); // NOLINT(concurrency-mt-unsafe): one thread
    std::string text = "this user may not ";
    text.append(verb).append(" it (mode ").append(octal.data()).append(", group ");
    text.append(owners != nullptr ? owners->gr_name : "unknown").append(")");
    return text;
}

std::string identifier(udev_device* device, const char* attribute) {
    const char* value = udev_device_get_sysattr_value(device, attribute);
    return value != nullptr ? value : "?";
}

std::string describe(udev_device* event) {
    udev_device* device = udev_device_get_parent_with_subsystem_devtype(event, "input", nullptr);
    const char* node = udev_device_get_devnode(event);
    std::string text = node != nullptr ? node : udev_device_get_sysname(event);
    if (device != nullptr) {
        text += ", " + identifier(device, "name") + " (" + identifier(device, "id/bustype") + ":" +
                identifier(device, "id/vendor") + ":" + identifier(device, "id/product") + ")";
    }
    return text;
}

std::string judge(udev_device* event) {
    if (isClone(event)) {
        return std::string("a clone of a touchpad that Glidemap has grabbed; ") +
               (udev_device_get_is_initialized(event) > 0 ? "udev has announced it"
                                                          : "udev has not announced it");
    }
    if (const char* reason = reasonNotToUse(event); reason != nullptr) {
        return std::string("not used: ") + reason;
    }
    const char* node = udev_device_get_devnode(event);
    const bool readable = faccessat(AT_FDCWD, node, R_OK, AT_EACCESS) == 0;
    return (readable ? "used, " : "not used: ") + access(node, R_OK, "read");
}

std::vector<std::string> touchpads() {
    const UdevHandle<udev> context(udev_new());
    const UdevHandle<udev_enumerate> enumerate(context ? udev_enumerate_new(context.get())
                                                       : nullptr);
    std::vector<std::string> lines;
    if (enumerate == nullptr) {
        lines.emplace_back("udev is not available");
        return lines;
    }
    udev_enumerate_add_match_subsystem(enumerate.get(), "input");
    udev_enumerate_add_match_sysname(enumerate.get(), "event[0-9]*");
    udev_enumerate_scan_devices(enumerate.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate.get())) {
        const UdevHandle<udev_device> event(
            udev_device_new_from_syspath(context.get(), udev_list_entry_get_name(entry)));
        if (event != nullptr && resemblesTouchpad(event.get())) {
            lines.push_back(describe(event.get()) + ": " + judge(event.get()));
        }
    }
    if (lines.empty()) {
        lines.emplace_back("no device resembles a touchpad");
    }
    return lines;
}

} // namespace

std::vector<std::string> reportOfDevices() {
    std::vector<std::string> lines = touchpads();
    std::string uinput = uinputNode;
    uinput.append(", for clones and for typing: ").append(access(uinputNode, W_OK, "write to"));
    lines.push_back(std::move(uinput));
    return lines;
}

} // namespace glidemap
