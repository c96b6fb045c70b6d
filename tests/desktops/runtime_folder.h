// The runtime folder of a desktop under test, which is also its home folder. Removed when the test
// ends.
//
// Thread:  one.
// Owner:   a desktop.
// Errors:  a folder that cannot be created fails the test.
#pragma once

#include "kit/temporary_folder.h"

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace glidemap::desktops {

class RuntimeFolder {
public:
    explicit RuntimeFolder(std::optional<uid_t> owner = std::nullopt);

    const std::filesystem::path& path() const { return folder.path(); }

    std::filesystem::path write(const std::string& name, const std::string& content) const {
        return folder.write(name, content);
    }

    // Lets the test's programs use the folder; they reject a runtime folder of another user. Call
    // it when a compositor that runs as another user has created its socket.
    void giveToTest() const;

private:
    // Not below a long path, because the length of socket names is limited.
    test::TemporaryFolder folder{"/tmp"};
};

} // namespace glidemap::desktops
