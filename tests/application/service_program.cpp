#include "service_program.h"

#include <filesystem>
#include <fstream>
#include <string_view>

namespace glidemap::test {

std::string serviceProgram(const std::string& name) {
    std::ifstream service("/usr/share/dbus-1/services/" + name + ".service");
    constexpr std::string_view key = "Exec=";
    for (std::string line; std::getline(service, line);) {
        if (line.starts_with(key)) {
            return line.substr(key.size(), line.find(' ') - key.size());
        }
    }
    return {};
}

bool isServiceInstalled(const std::string& name) {
    return std::filesystem::exists(serviceProgram(name));
}

} // namespace glidemap::test
