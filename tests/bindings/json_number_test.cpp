#include "bindings/json_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

struct Row {
    const char* text;
    std::optional<std::uint64_t> value;
};

TEST(JsonNumberTest, AnIntegerIsExactInEveryNotation) {
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

TEST(JsonNumberTest, AHugeNumberHasMoreDigitsThanTheMaximumValue) {
    for (const char* const text : {"1e20", "-1e400", "184467440737095516150", "0.1e21"}) {
        EXPECT_TRUE(isHugeNumber(text)) << text;
    }
    for (const char* const text :
         {"0", "0e999", "99999999999999999999", "1e19", "0.1e20", "1e-400"}) {
        EXPECT_FALSE(isHugeNumber(text)) << text;
    }
}

} // namespace
} // namespace glidemap
