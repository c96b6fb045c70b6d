// Implements the login item as an autostart file. It counts as enabled only if a session would
// really start the program.
//
// The user's file replaces a system file of the same name completely. So registering writes or
// repairs the user's file. Unregistering removes it, or hides the system's file if that one would
// then start the program.
//
// Thread:  the main thread; blocks on the disk.
// Owner:   the program.
// Errors:  the system's error text.
#pragma once

#include "app/login_item_service.h"
#include "platform/linux/session/autostart_file.h"

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace glidemap {

// The folders of autostart files, and the session that interprets them.
struct AutostartPlaces {
    std::filesystem::path userFolder;
    std::vector<std::filesystem::path> systemFolders; // the first one with the file wins
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
