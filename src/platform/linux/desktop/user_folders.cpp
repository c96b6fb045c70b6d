#include "platform/linux/desktop/user_folders.h"

#include "platform/linux/desktop/environment.h"

#include <glib.h>

namespace glidemap {

namespace {

std::filesystem::path folder(const char* variable, const char* withinHome) {
    const std::filesystem::path given(fromEnvironment(variable));
    return given.is_absolute() ? given : std::filesystem::path(g_get_home_dir()) / withinHome;
}

} // namespace

std::filesystem::path userConfigurationFolder() {
    return folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path userDataFolder() {
    return folder("XDG_DATA_HOME", ".local/share");
}

std::filesystem::path userStateFolder() {
    return folder("XDG_STATE_HOME", ".local/state");
}

std::filesystem::path userRuntimeFolder() {
    const std::filesystem::path given(fromEnvironment("XDG_RUNTIME_DIR"));
    return given.is_absolute() ? given : folder("XDG_CACHE_HOME", ".cache") / "glidemap";
}

std::vector<std::filesystem::path> systemConfigurationFolders() {
    const std::string given = fromEnvironment("XDG_CONFIG_DIRS");
    std::vector<std::filesystem::path> folders;
    for (const std::string& each : splitAtColons(given.empty() ? "/etc/xdg" : given)) {
        if (std::filesystem::path(each).is_absolute()) {
            folders.emplace_back(each);
        }
    }
    return folders;
}

} // namespace glidemap
