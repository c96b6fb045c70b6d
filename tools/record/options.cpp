#include "options.h"

#include <string_view>

namespace glidemap::record {

std::variant<Options, HelpRequest, UsageError> parseOptions(int count,
                                                            const char* const* arguments) {
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument == "--help" || argument == "-h") {
            return HelpRequest{};
        }
        if (argument != "-o") {
            return UsageError{"unknown argument '" + std::string(argument) + "'"};
        }
        if (options.file.has_value()) {
            return UsageError{"-o was given more than once"};
        }
        if (index + 1 == count || *arguments[index + 1] == '\0') {
            return UsageError{"-o needs a file"};
        }
        options.file = arguments[++index];
    }
    return options;
}

} // namespace glidemap::record
