// The fake of the system's preferences.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>

namespace glidemap::test {

// A number represents all types other than text and boolean.
using Preference = std::variant<std::string, bool, double>;

struct Preferences {
    std::map<std::string, Preference> stored; // values stored for this application
    bool makesTexts = true;
};
Preferences& preferences();

} // namespace glidemap::test
