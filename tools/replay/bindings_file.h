// The bindings that a run is to have, read from a file that is never written.
//
// Errors:  the reason in words, without the file's name.
#pragma once

#include "bindings/binding_json.h"

#include <string>
#include <variant>
#include <vector>

namespace glidemap::replay {

struct UnusableBindings {
    std::string reason;
};

std::variant<std::vector<GestureBinding>, UnusableBindings>
readBindings(const std::string& fileName);

} // namespace glidemap::replay
