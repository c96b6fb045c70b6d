#include "accessory_double.h"

#include "platform/macos/shell/accessory.h"

namespace glidemap {

std::vector<std::string>& doubles::asked() {
    static std::vector<std::string> lines;
    return lines;
}

void becomeAccessory() {
    doubles::asked().push_back("becomeAccessory");
}

void comeForward() {
    doubles::asked().push_back("comeForward");
}

} // namespace glidemap
