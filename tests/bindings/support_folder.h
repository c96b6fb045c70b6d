// A folder for application data, removed at the end of the test, and the bindings file in it.
#pragma once

#include "bindings/binding_store.h"
#include "kit/temporary_folder.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace glidemap {

class SupportFolder {
public:
    // By default, the folder is created where the system keeps temporary files.
    explicit SupportFolder(const std::filesystem::path& place = {}) : support(place) {}

    const std::filesystem::path& path() const { return support.path(); }
    std::filesystem::path folder() const { return path() / "Glidemap"; }
    std::filesystem::path file() const { return folder() / "bindings.json"; }

    BindingStore::SupportFolder asked() const;
    // Creates a store, as another launch of the program does.
    BindingStore launch() const { return BindingStore(asked()); }

    // Writes the bindings file, which a later launch() reads. Creates its folder if it is missing.
    void write(std::string_view content) const;

private:
    test::TemporaryFolder support;
};

using test::contentOf;
void writeContent(const std::filesystem::path& file, std::string_view content);

// Returns the names of all entries of the folder, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

} // namespace glidemap
