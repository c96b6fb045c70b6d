// The login item of a desktop session: an autostart file, which counts as enabled only if a session
// would really start the program.
//
// The file of the user replaces one of the same name that the system has, whole. So registering
// writes, or repairs, the user's; unregistering removes it or, where the system has one that would
// start the program then, hides that one behind it.
//
// Thread:  the main thread; blocks for as long as the disk does.
// Owner:   the program.
// Errors:  the system's own text for what it refused.
#pragma once

#include "app/login_item_service.h"
#include "platform/linux/session/autostart_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace glidemap {

// Where autostart files are, and whose session decides about them.
struct AutostartPlaces {
    std::filesystem::path userFolder;
    std::vector<std::filesystem::path> systemFolders; // the first that has the file wins
    AutostartSession session;
    std::filesystem::path program; // what registering is for

    static AutostartPlaces ofThisProcess();
};

class AutostartEntry : public LoginItemService {
public:
    explicit AutostartEntry(AutostartPlaces where);

    Status status() const override;
    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;

private:
    std::optional<std::filesystem::path> systemFile() const;
    std::error_code removeUserFile() const;

    const AutostartPlaces places;
    const std::filesystem::path userFile;
};

} // namespace glidemap
