#include "options.h"

#include <gtest/gtest.h>

#include <vector>

namespace glidemap::record {
namespace {

std::string outcome(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "glidemap-record");
    const auto parsed = parseOptions(static_cast<int>(arguments.size()), arguments.data());
    if (const auto* options = std::get_if<Options>(&parsed)) {
        return "to " + options->file.value_or("standard output");
    }
    const auto* error = std::get_if<UsageError>(&parsed);
    return error != nullptr ? error->message : "help";
}

TEST(Options, AcceptsOnlyTheOptionsForOutputAndHelp) {
    struct Row {
        std::vector<const char*> arguments;
        const char* expected;
    };
    const Row rows[] = {
        {{}, "to standard output"},
        {{"-o", "touch.jsonl"}, "to touch.jsonl"},
        {{"-o", "-o"}, "to -o"},
        {{"--help"}, "help"},
        {{"-h"}, "help"},
        {{"-o", "touch.jsonl", "--help"}, "help"},
        {{"-o"}, "-o needs a file"},
        {{"-o", ""}, "-o needs a file"},
        {{"-o", "a", "-o", "b"}, "-o was given more than once"},
        {{"touch.jsonl"}, "unknown argument 'touch.jsonl'"},
        {{"-x"}, "unknown argument '-x'"},
        {{""}, "unknown argument ''"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(outcome(row.arguments), row.expected);
    }
}

} // namespace
} // namespace glidemap::record
