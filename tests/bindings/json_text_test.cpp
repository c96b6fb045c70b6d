#include "bindings/json_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

struct Row {
    const char* text;
    std::optional<std::uint64_t> value;
};

TEST(JsonTextTest, IntegersAreExactInEveryNotation) {
    constexpr auto max = std::numeric_limits<std::uint64_t>::max();
    constexpr Row rows[] = {
        {"0", 0},
        {"-0", 0},
        {"-0.00e5", 0},
        {"36", 36},
        {"36.0", 36},
        {"3.6e1", 36},
        {"3,6e1", 36}, // the parser's spelling in some locales
        {"0.0036E+4", 36},
        {"36000e-3", 36},
        {"9007199254740993.0", 9007199254740993},
        {"18446744073709551615", max},
        {"184467440737095516150e-1", max},
        {"0e18446744073709551616", 0},
        {"0.5", std::nullopt},
        {"36e-1", std::nullopt},
        {"-36", std::nullopt},
        {"18446744073709551615.5", std::nullopt},
        {"18446744073709551616", std::nullopt},
        {"1e20", std::nullopt},
        {"1e18446744073709551616", std::nullopt},
        {"1e-18446744073709551616", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(wholeNumber(row.text), row.value) << row.text;
    }
}

struct Text {
    const char* original;
    const char* parsable; // null if the text stays unchanged
};

void expectReplaced(const Text& row) {
    const auto replaced = parsableJson(row.original);
    EXPECT_EQ(replaced.has_value(), row.parsable != nullptr) << row.original;
    if (replaced && row.parsable != nullptr) {
        EXPECT_EQ(*replaced, row.parsable);
    }
}

TEST(JsonTextTest, NumbersWithMoreThanTwentyWholeDigitsBecomeNull) {
    constexpr Text rows[] = {
        {"1e20", "null"},
        {"[1e400,2]", "[null ,2]"},
        {"-1e400", "null  "},
        {"0.1e21", "null  "},
        {"184467440737095516150", "null                 "},
        {"[1e400, -1e400]", "[null , null  ]"},
        {"1e400.5", "null .5"},
        {"99999999999999999999", nullptr},
        {"1e19", nullptr},
        {"0.1e20", nullptr},
        {"1e-400", nullptr},
        {"0e999", nullptr},
        {"-0.0e99999999999999999999", nullptr},
        {"\"1e400 \\\" 1e400\"", nullptr}, // inside a string
    };
    for (const Text& row : rows) {
        expectReplaced(row);
    }
}

TEST(JsonTextTest, InvalidNumbersStayInvalid) {
    for (const char* const text :
         {"01e400", "-", "1e", "1e+", "1.", "1.e400", "-e400", "1eO", "[-"}) {
        expectReplaced({text, nullptr});
    }
}

TEST(JsonTextTest, EscapedUnpairedSurrogatesAreReplaced) {
    constexpr Text rows[] = {
        {R"("\ud800")", R"("\ufffd")"},
        {R"("\uDFFF")", R"("\ufffd")"},
        {R"("\udc00\ud800")", R"("\ufffd\ufffd")"},
        {R"("\ud800\ud800\udc00")", R"("\ufffd\ud800\udc00")"},
        {R"("\ud800\n\\ud800")", R"("\ufffd\n\\ud800")"},
        {R"("\ud83d\ude00")", nullptr},
        {R"("\ud7ff\ue000")", nullptr},
        {R"("\\ud800")", nullptr},
        {R"("\ud8")", nullptr},
        {R"("\ud80")", nullptr},
        {R"("\u-123")", nullptr},
        {R"(\ud800)", nullptr}, // outside a string
        {R"("\)", nullptr},
    };
    for (const Text& row : rows) {
        expectReplaced(row);
    }
}

} // namespace
} // namespace glidemap
