// Implements the login item as an autostart file. The item counts as enabled only if a session
// would really start the program.
//
// The user's file completely replaces a system file with the same name. Registering writes or
// repairs the user's file. Unregistering removes the user's file. If the system's file would then
// start the program, unregistering instead marks the user's file as hidden.
//
// Thread:  the main thread; blocks on the disk.
// Owner:   the program.
// Errors:  returned as the system's error text.
#pragma once

#include "app/login_item_service.h"
#include "platform/linux/session/autostart_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace glidemap {

// The folders of autostart files, and the session that reads them.
struct AutostartPlaces {
    std::filesystem::path userFolder;
    // The first folder that contains our autostart file is used.
    std::vector<std::filesystem::path> systemFolders;
    AutostartSession session;
    std::filesystem::path program; // the program to register

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
