// A folder for application data that goes with the test, and the bindings file in it.
#pragma once

#include "bindings/binding_store.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace glidemap {

class SupportFolder {
public:
    // In the folder for temporary files, unless told otherwise.
    explicit SupportFolder(const std::filesystem::path& place = {});
    SupportFolder(const SupportFolder&) = delete;
    SupportFolder& operator=(const SupportFolder&) = delete;
    ~SupportFolder();

    const std::filesystem::path& path() const { return support; }
    std::filesystem::path folder() const { return support / "Glidemap"; }
    std::filesystem::path file() const { return folder() / "bindings.json"; }

    // Each store is another launch of the program.
    BindingStore::SupportFolder asked() const;
    BindingStore launch() const { return BindingStore(asked()); }

    // Puts the file there before a launch.
    void write(std::string_view content) const;

private:
    std::filesystem::path support;
};

// Nothing if there is no such file.
std::string contentOf(const std::filesystem::path& file);
void writeContent(const std::filesystem::path& file, std::string_view content);

// The names of all that is in the folder, in ascending order.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace glidemap
