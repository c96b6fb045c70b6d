#include "platform/linux/desktop/launch_messages.h"

#include <cstddef>

namespace glidemap {

namespace {

constexpr std::size_t pieceSize = 20; // the number of bytes in a client message

std::string quoted(std::string_view value) {
    std::string text = "\"";
    for (const char letter : value) {
        if (letter == '"' || letter == '\\') {
            text += '\\';
        }
        text += letter;
    }
    return text + '"';
}

} // namespace

std::vector<std::string> launchMessage(std::string_view kind, const LaunchFields& fields) {
    std::string text(kind);
    text += ':';
    for (const auto& [name, value] : fields) {
        if (!value.empty()) {
            text.append(" ").append(name).append("=").append(quoted(value));
        }
    }
    text += '\0';
    std::vector<std::string> pieces;
    for (std::size_t begin = 0; begin < text.size(); begin += pieceSize) {
        pieces.push_back(text.substr(begin, pieceSize));
    }
    return pieces;
}

} // namespace glidemap
