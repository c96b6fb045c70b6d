// Formats a report of headings and indented lines. The home folder is shortened to "~", and control
// characters are replaced with question marks.
//
// Thread:  one.
// Errors:  none.
#pragma once

#include <string>
#include <string_view>

namespace glidemap {

class ReportPage {
public:
    explicit ReportPage(std::string homeFolder);

    void heading(std::string_view title);
    void line(std::string_view text);
    // Adds "name: value", or "name: (not set)" if the value is empty.
    void fact(std::string_view name, std::string_view value);

    const std::string& text() const { return written; }

private:
    std::string cleaned(std::string_view text) const;

    std::string home;
    std::string written;
};

} // namespace glidemap
