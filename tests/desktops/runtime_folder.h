// The runtime folder of a desktop under test, which is its home, too. Gone when the test ends.
//
// Thread:  one.
// Owner:   a desktop.
// Errors:  a folder that cannot be made is a failure of the test.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace glidemap::desktops {

class RuntimeFolder {
public:
    explicit RuntimeFolder(std::optional<uid_t> owner = std::nullopt);
    RuntimeFolder(const RuntimeFolder&) = delete;
    RuntimeFolder& operator=(const RuntimeFolder&) = delete;
    ~RuntimeFolder();

    const std::filesystem::path& path() const { return folder; }

    std::filesystem::path write(const std::string& name, const std::string& content) const;

private:
    std::filesystem::path folder;
};

} // namespace glidemap::desktops
