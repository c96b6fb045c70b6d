// The system's preferences as the doubles have them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <variant>

namespace glidemap::doubles {

// A number stands for all kinds that are neither text nor truth.
using Preference = std::variant<std::string, bool, double>;

struct Preferences {
    std::map<std::string, Preference> stored; // by this application
    bool makesTexts = true;
};
Preferences& preferences();

} // namespace glidemap::doubles
