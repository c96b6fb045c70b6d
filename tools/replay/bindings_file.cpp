#include "bindings_file.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <system_error>
#include <utility>

namespace glidemap::replay {

namespace {

// Enough for about a million bindings. Reading a larger file could exhaust the memory.
constexpr std::size_t maxFileSize = 256UL * 1024 * 1024;

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

UnusableBindings systemError() {
    return {std::generic_category().message(errno)};
}

// Does not use readFile(), which returns no error and rejects pipes.
std::variant<std::string, UnusableBindings> contentOf(const std::string& fileName) {
    const std::unique_ptr<std::FILE, Close> file(std::fopen(fileName.c_str(), "rbe"));
    if (!file) {
        return systemError();
    }
    std::string content;
    std::array<char, 65536> part{};
    std::size_t count = 0;
    while ((count = std::fread(part.data(), 1, part.size(), file.get())) > 0) {
        content.append(part.data(), count);
        if (content.size() > maxFileSize) {
            return UnusableBindings{"the file is too large"};
        }
    }
    if (std::ferror(file.get()) != 0) {
        return systemError();
    }
    return content;
}

} // namespace

std::variant<std::vector<GestureBinding>, UnusableBindings>
readBindings(const std::string& fileName) {
    auto content = contentOf(fileName);
    if (auto* const unusable = std::get_if<UnusableBindings>(&content)) {
        return std::move(*unusable);
    }
    auto decoded = decodeBindings(std::get<std::string>(content));
    if (auto* const failure = std::get_if<DecodingFailure>(&decoded)) {
        return UnusableBindings{std::move(failure->reason)};
    }
    return std::get<std::vector<GestureBinding>>(std::move(decoded));
}

} // namespace glidemap::replay
