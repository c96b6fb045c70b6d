#include "app/launch_options.h"

#include "platform/launch_words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

constexpr std::array options = {
    std::pair<std::string_view, LaunchOption>{"--verbose", LaunchOption::runVerbosely},
    std::pair<std::string_view, LaunchOption>{"--diagnose", LaunchOption::diagnose},
    std::pair<std::string_view, LaunchOption>{"--version", LaunchOption::version},
    std::pair<std::string_view, LaunchOption>{"--help", LaunchOption::help},
    std::pair<std::string_view, LaunchOption>{"-h", LaunchOption::help},
};

LaunchOption optionNamed(std::string_view name) {
    const auto* const known =
        std::ranges::find(options, name, &std::pair<std::string_view, LaunchOption>::first);
    return known != options.end() ? known->second : LaunchOption::wrong;
}

} // namespace

LaunchOption launchOption(std::span<char* const> arguments) {
    std::optional<std::string_view> own;
    while (!arguments.empty()) {
        const std::size_t systemCount = leadingSystemArguments(arguments);
        if (systemCount == 0 && own) {
            return LaunchOption::wrong;
        }
        if (systemCount == 0) {
            own = arguments.front();
        }
        arguments = arguments.subspan(std::max<std::size_t>(systemCount, 1));
    }
    return own ? optionNamed(*own) : LaunchOption::run;
}

} // namespace glidemap
