// The runtime folder of a desktop under test, which is its home, too. Gone when the test ends.
//
// Thread:  one.
// Owner:   a desktop.
// Errors:  a folder that cannot be made is a failure of the test.
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

    // For the programs of the test, which take no runtime folder of another user. A compositor that runs as another user has made
    // its socket by then.
    void giveToTest() const;

private:
    // Not below a long path: the names of sockets have little room.
    test::TemporaryFolder folder{"/tmp"};
};

} // namespace glidemap::desktops
