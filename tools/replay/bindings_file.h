// Reads the bindings for a run from a file. Does not modify the file.
//
// Errors:  returned as text, without the file's name.
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
