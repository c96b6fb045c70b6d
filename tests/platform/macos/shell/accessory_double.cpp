#include "accessory_double.h"

#include "platform/macos/shell/accessory.h"

namespace glidemap {

std::vector<std::string>& test::asked() {
    static std::vector<std::string> lines;
    return lines;
}

void becomeAccessory() {
    test::asked().push_back("becomeAccessory");
}

void comeForward() {
    test::asked().push_back("comeForward");
}

} // namespace glidemap
