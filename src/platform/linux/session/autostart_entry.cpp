#include "platform/linux/session/autostart_entry.h"

#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/replace_file.h"
#include "platform/linux/desktop/user_folders.h"

#include <utility>

namespace glidemap {

namespace {

constexpr const char* fileName = "org.glidemap.Glidemap.desktop";

using Start = AutostartFile::Start;

bool isThere(const std::filesystem::path& file) {
    std::error_code error;
    return std::filesystem::exists(file, error);
}

LoginItemService::Status statusFor(Start start) {
    switch (start) {
    case Start::happens:
        return LoginItemService::Status::enabled;
    case Start::switchedOff:
        return LoginItemService::Status::requiresApproval;
    case Start::impossible:
        return LoginItemService::Status::notFound;
    case Start::hidden:
    case Start::elsewhere:
        break;
    }
    return LoginItemService::Status::notRegistered;
}

std::optional<std::string> textFor(std::error_code error) {
    return error ? std::optional(error.message()) : std::nullopt;
}

} // namespace

AutostartPlaces AutostartPlaces::ofThisProcess() {
    AutostartPlaces places;
    places.userFolder = userConfigurationFolder() / "autostart";
    for (const auto& folder : systemConfigurationFolders()) {
        places.systemFolders.push_back(folder / "autostart");
    }
    places.session.desktops = splitAtColons(fromEnvironment("XDG_CURRENT_DESKTOP"));
    places.session.searchPath = fromEnvironment("PATH");
    std::error_code error;
    places.program = std::filesystem::read_symlink("/proc/self/exe", error);
    return places;
}

AutostartEntry::AutostartEntry(AutostartPlaces where)
    : places(std::move(where)), userFile(places.userFolder / fileName) {}

LoginItemService::Status AutostartEntry::status() const {
    const auto file = isThere(userFile) ? std::optional(userFile) : systemFile();
    return file ? statusFor(AutostartFile::read(*file).start(places.session))
                : Status::notRegistered;
}

std::optional<std::string> AutostartEntry::registerItem() {
    const auto decisive = isThere(userFile) ? std::optional(userFile) : systemFile();
    if (decisive && AutostartFile::read(*decisive).starts(places.session, places.program)) {
        return std::nullopt;
    }
    AutostartFile file = AutostartFile::read(userFile);
    file.repair(places.session, places.program);
    return textFor(replaceFile(userFile, file.text()));
}

std::optional<std::string> AutostartEntry::unregisterItem() {
    const auto ofSystem = systemFile();
    if (!ofSystem || AutostartFile::read(*ofSystem).start(places.session) != Start::happens) {
        return textFor(removeUserFile());
    }
    AutostartFile file = AutostartFile::read(userFile);
    file.hide();
    return textFor(replaceFile(userFile, file.text()));
}

std::optional<std::filesystem::path> AutostartEntry::systemFile() const {
    for (const auto& folder : places.systemFolders) {
        if (isThere(folder / fileName)) {
            return folder / fileName;
        }
    }
    return std::nullopt;
}

std::error_code AutostartEntry::removeUserFile() const {
    std::error_code error;
    std::filesystem::remove(userFile, error);
    return error;
}

} // namespace glidemap
