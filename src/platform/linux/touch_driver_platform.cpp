#include "platform/linux/touch_driver_platform.h"

#include "input/touch_driver.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* driverVariable = "GLIDEMAP_TOUCH_DRIVER";

TouchDriverPlatform::ListAccess listAccess(void* handle) {
    return {
        reinterpret_cast<driver::ListCount>(dlsym(handle, driver::listCountSymbol)),
        reinterpret_cast<driver::ListValueAtIndex>(dlsym(handle, driver::listValueAtIndexSymbol)),
    };
}

} // namespace

std::string programFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

TouchDriverPlatform touchDriverPlatform() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no thread changes the environment
    const char* chosen = std::getenv(driverVariable);
    const bool isChosen = chosen != nullptr && *chosen != '\0';
    return touchDriverPlatformAt(isChosen ? chosen : touchDriverPath("evdev"));
}

TouchDriverPlatform touchDriverPlatformAt(std::string libraryPath) {
    return {std::move(libraryPath), listAccess};
}

std::string touchDriverPath(std::string_view driver) {
    const auto file = "libglidemap-" + std::string(driver) + ".so";
    return (std::filesystem::path(programFile()).parent_path().parent_path() / "lib" / "glidemap" /
            file)
        .string();
}

} // namespace glidemap
