#include "platform/linux/diagnosis/report_page.h"

#include <utility>

namespace glidemap {

ReportPage::ReportPage(std::string homeFolder) : home(std::move(homeFolder)) {}

void ReportPage::heading(std::string_view title) {
    written += (written.empty() ? "" : "\n") + cleaned(title) + '\n';
}

void ReportPage::line(std::string_view text) {
    written += "  " + cleaned(text) + '\n';
}

void ReportPage::fact(std::string_view name, std::string_view value) {
    line(std::string(name) + ": " + (value.empty() ? "(not set)" : std::string(value)));
}

std::string ReportPage::cleaned(std::string_view text) const {
    std::string result(text);
    const bool isFolder = home.size() > 1 && home.front() == '/';
    for (std::size_t at = 0; isFolder && (at = result.find(home, at)) != std::string::npos; ++at) {
        const std::size_t end = at + home.size();
        if (end == result.size() || result[end] == '/') {
            result.replace(at, home.size(), "~");
        }
    }
    for (char& letter : result) {
        const auto byte = static_cast<unsigned char>(letter);
        letter = byte < ' ' || byte == 0x7f ? '?' : letter;
    }
    return result;
}

} // namespace glidemap
