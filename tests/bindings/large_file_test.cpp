// Tests files that are larger or more deeply nested than any list of bindings. Each file is decoded
// or rejected, and the test limits the memory that this takes to a few times the length of the
// file.
#include "bindings/binding_json.h"
#include "kit/live_memory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

namespace glidemap {
namespace {

// In a debug build, or with a sanitizer, the full size would take minutes.
#if defined(NDEBUG)
constexpr std::size_t fileSize = 100'000'000;
#else
constexpr std::size_t fileSize = 5'000'000;
#endif

#define KNOWN_START                                                                                \
    R"("id":"0123ABCD-EF01-4567-89AB-CDEF01234567","gesture":"twoFingerTap","enabled":true,)"
#define KNOWN_ACTION R"("action":{"kind":"lockScreen"})"
#define KNOWN_SCOPE R"("scope":{"kind":"global"})"
#define KNOWN_FIELDS KNOWN_START KNOWN_ACTION "," KNOWN_SCOPE

struct Row {
    const char* name;
    std::string_view start;
    std::string_view repeated;
    std::string_view middle;
    std::string_view repeatedAgain;
    std::string_view end;
    std::string_view reason; // a substring of the error; empty if the file decodes
    std::size_t maxMemoryPerByte = 4;
    std::size_t size = fileSize;
};

// The parser's message repeats the last token.
constexpr std::size_t maxMemoryPerTokenByte = 8;
// The message about a number is built from two copies of the number. With libc++, the strings take
// 8.05 times the number's length in all; with libstdc++, less than 8 times.
constexpr std::size_t maxMemoryPerNumberByte = 9;
// The message writes each unprintable character as eight characters. While the message grows, its
// old and its new buffer are both allocated.
constexpr std::size_t maxMemoryPerEscapedByte = 24;

const Row rows[] = {
    {"only_open_brackets", "", "[", "", "", "", "[0]: not an object"},
    {"only_line_ends", "", "\n", "", "", "", "unexpected end of input", maxMemoryPerEscapedByte,
     fileSize / 10},
    {"line_ends_around", "", "\n", "[]", "\n", "", ""},
    {"arrays_in_what_is_ignored", "[{" KNOWN_FIELDS R"(,"x":)", "[", "", "]", "}]", ""},
    {"arrays_that_do_not_end", "[{" KNOWN_FIELDS R"(,"x":)", "[", "", "", "",
     "unexpected end of input"},
    {"objects_in_what_is_ignored", "[{" KNOWN_FIELDS R"(,"x":)", R"({"id":)", "1", "}", "}]", ""},
    {"arrays_for_a_text", R"([{"id":)", "[", "", "]", "}]", "[0].id: not a text"},
    {"actions_in_actions", R"([{"action":)", R"({"action":)", "1", "}", "}]", "[0].id: missing"},
    {"numbers_in_what_is_ignored", "[{" KNOWN_FIELDS R"(,"x":[)", "0,", "0]", "", "}]", ""},
    {"an_ignored_text", "[{" KNOWN_FIELDS R"(,"x":")", "x", "\"", "", "}]", ""},
    {"an_ignored_key", "[{" KNOWN_FIELDS R"(,")", "x", "\":1", "", "}]", ""},
    {"a_text_that_does_not_end", "[{" KNOWN_FIELDS R"(,"x":")", "x", "", "", "",
     "missing closing quote", maxMemoryPerTokenByte},
    {"a_gesture", R"([{"id":"0123ABCD-EF01-4567-89AB-CDEF01234567","gesture":")", "x", "\"", "",
     "}]", R"(xxx..." is not a gesture)"},
    {"a_name", "[{" KNOWN_START KNOWN_ACTION R"(,"scope":{"kind":"app","bundleID":"a","name":")",
     "x", "\"", "", "}}]", ""},
    {"a_repeated_key", "[{" KNOWN_START, R"("scope":{"kind":"app"},)", KNOWN_ACTION "," KNOWN_SCOPE,
     "", "}]", ""},
    {"a_number", R"([{"enabled":)", "9", "}]", "", "", "[0].id: missing", maxMemoryPerNumberByte},
    {"bindings", "[", "{" KNOWN_FIELDS "},", "{" KNOWN_FIELDS "}", "", "]", ""},
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.name;
}

std::string textOf(const Row& row) {
    const std::size_t times = row.size / (row.repeated.size() + row.repeatedAgain.size()) + 1;
    std::string text;
    text.reserve(row.size + 1'000);
    // Doubles the text again and again, because test code is compiled without optimisation, and a
    // hundred million appends would take seconds.
    const auto repeat = [&](std::string_view what) {
        const std::size_t start = text.size();
        const std::size_t end = start + times * what.size();
        text += what;
        while (text.size() < end) {
            text.append(text, start, std::min(text.size() - start, end - text.size()));
        }
    };
    text += row.start;
    repeat(row.repeated);
    text += row.middle;
    repeat(row.repeatedAgain);
    text += row.end;
    return text;
}

class LargeFileTest : public testing::TestWithParam<Row> {};

TEST_P(LargeFileTest, DecodingMemoryIsProportionalToTheFileSize) {
    const Row& row = GetParam();
    const std::string text = textOf(row);
    test::resetPeakLiveMemory();
    const std::size_t before = test::liveMemory();
    const auto decoded = decodeBindings(text);
    constexpr std::size_t anyway = 2'000'000;
    EXPECT_LT(test::peakLiveMemory() - before, row.maxMemoryPerByte * text.size() + anyway);
    const auto* const failure = std::get_if<DecodingFailure>(&decoded);
    if (row.reason.empty()) {
        EXPECT_EQ(failure, nullptr) << failure->reason;
    } else {
        ASSERT_NE(failure, nullptr);
        EXPECT_NE(failure->reason.find(row.reason), std::string::npos) << failure->reason;
        EXPECT_LT(failure->reason.size(), 250U);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, LargeFileTest, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace glidemap
