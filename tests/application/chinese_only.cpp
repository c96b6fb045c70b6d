#include "chinese_only.h"

#include <algorithm>
#include <cctype>
#include <regex>

namespace glidemap::test {

namespace {

// English texts that a Chinese interface may contain: proper names, the entry for English in the
// language picker, and the names of keys and commands.
const std::regex& allowed() {
    static const std::regex words(
        "Glidemap|Mission Control|App|macOS|English|(⌃|⌥|⇧|⌘)+.|((Ctrl|Alt|Shift|Super)[ +])+.|"
        "sudo [^ ]+");
    return words;
}

bool hasForeignLetters(const std::string& text) {
    const std::string rest = std::regex_replace(text, allowed(), "");
    return std::any_of(rest.begin(), rest.end(),
                       [](unsigned char each) { return std::isalpha(each) != 0 && each < 0x80; });
}

} // namespace

std::vector<std::string> notInChinese(const Controls& controls) {
    std::vector<std::string> found;
    for (const Control& each : controls) {
        for (const std::string& text : {each.name, each.label, each.description, each.text}) {
            if (hasForeignLetters(text)) {
                found.push_back(each.role + ": " + text);
            }
        }
    }
    return found;
}

} // namespace glidemap::test
