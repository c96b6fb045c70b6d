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

namespace glidemap::test {

class RuntimeFolder {
public:
    explicit RuntimeFolder(std::optional<uid_t> owner = std::nullopt);

    const std::filesystem::path& path() const { return folder.path(); }

    std::filesystem::path write(const std::string& name, const std::string& content) const {
        return folder.write(name, content);
    }

    // Changes the folder's owner to the user of the test's programs, which reject a runtime folder
    // of another user. Call this after a compositor that runs as another user has created its
    // socket.
    void giveToTest() const;

private:
    // The path must be short, because the length of socket names is limited.
    TemporaryFolder folder{"/tmp"};
};

} // namespace glidemap::test
