// Controls the system's appearance in tests.
#pragma once

#include <optional>
#include <string>

namespace glidemap::test {

// The fixture's set-up calls this function.
void resetAppearance();

// Sets the appearance name that matches the program's request best, without notifying observers.
// nullopt means that no requested name matches.
void startWithAppearance(std::optional<std::string> bestMatch);

// Changes that name while the program runs, and notifies observers.
void changeAppearance(std::optional<std::string> bestMatch);

} // namespace glidemap::test
