// Lets GoogleTest print bindings as they appear in the file.
#pragma once

#include "bindings/binding_json.h"
#include "kit/printers.h"

#include <ostream>

namespace glidemap {

inline void PrintTo(const GestureBinding& binding, std::ostream* stream) {
    *stream << encodeBindings({binding});
}

} // namespace glidemap
