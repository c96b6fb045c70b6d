// How the system looks, for a test.
#pragma once

#include <optional>
#include <string>

namespace glidemap::doubles {

// Done by every test's set-up.
void resetAppearance();

// The name of the appearance that fits best, or of none that anybody asks for. Nobody is told.
void startWithAppearance(std::optional<std::string> bestMatch);

// The same while the program runs, with its observers told.
void changeAppearance(std::optional<std::string> bestMatch);

} // namespace glidemap::doubles
