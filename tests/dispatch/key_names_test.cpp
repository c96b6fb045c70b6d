#include "dispatch/key_names.h"

#include <gtest/gtest.h>

#include <limits>

namespace glidemap {
namespace {

using Table = std::map<std::uint16_t, std::string_view>;

// The table of key names, written a second time and grouped by kind of key instead of by code.
const Table expected = {
    {0, "A"},     {11, "B"},     {8, "C"},     {2, "D"},     {14, "E"},     {3, "F"},
    {5, "G"},     {4, "H"},      {34, "I"},    {38, "J"},    {40, "K"},     {37, "L"},
    {46, "M"},    {45, "N"},     {31, "O"},    {35, "P"},    {12, "Q"},     {15, "R"},
    {1, "S"},     {17, "T"},     {32, "U"},    {9, "V"},     {13, "W"},     {7, "X"},
    {16, "Y"},    {6, "Z"},      {29, "0"},    {18, "1"},    {19, "2"},     {20, "3"},
    {21, "4"},    {23, "5"},     {22, "6"},    {26, "7"},    {28, "8"},     {25, "9"},
    {122, "F1"},  {120, "F2"},   {99, "F3"},   {118, "F4"},  {96, "F5"},    {97, "F6"},
    {98, "F7"},   {100, "F8"},   {101, "F9"},  {109, "F10"}, {103, "F11"},  {111, "F12"},
    {105, "F13"}, {107, "F14"},  {113, "F15"}, {24, "="},    {27, "-"},     {30, "]"},
    {33, "["},    {39, "'"},     {41, ";"},    {42, "\\"},   {43, ","},     {44, "/"},
    {47, "."},    {50, "`"},     {36, "↩"},    {48, "⇥"},    {49, "Space"}, {51, "⌫"},
    {53, "⎋"},    {114, "Help"}, {115, "↖"},   {116, "⇞"},   {117, "⌦"},    {119, "↘"},
    {121, "⇟"},   {123, "←"},    {124, "→"},   {125, "↓"},   {126, "↑"},
};

TEST(KeyNamesTest, TableHasExactly77Keys) {
    EXPECT_EQ(expected.size(), 77U);
    EXPECT_EQ(KeyNames::map(), expected);
}

TEST(KeyNamesTest, EveryKeyCodeHasANameOrShowsItsNumber) {
    for (unsigned code = 0; code <= std::numeric_limits<std::uint16_t>::max(); ++code) {
        const auto keyCode = static_cast<std::uint16_t>(code);
        const auto found = expected.find(keyCode);
        const auto name =
            found != expected.end() ? std::string(found->second) : "Key " + std::to_string(code);
        ASSERT_EQ(KeyNames::name(keyCode), name);
    }
}

TEST(KeyNamesTest, SpaceBarIsNamedSpace) {
    EXPECT_EQ(KeyNames::name(49), "Space");
}

TEST(KeyNamesTest, UnnamedKeyCodeIsShownAsItsNumber) {
    EXPECT_EQ(KeyNames::name(10), "Key 10");
    EXPECT_EQ(KeyNames::name(52), "Key 52");
    EXPECT_EQ(KeyNames::name(127), "Key 127");
    EXPECT_EQ(KeyNames::name(65535), "Key 65535");
}

TEST(KeyNamesTest, DigitKeyCodesAreNotInOrder) {
    EXPECT_EQ(KeyNames::name(22), "6");
    EXPECT_EQ(KeyNames::name(23), "5");
}

TEST(KeyNamesTest, SymbolKeysHaveTheExpectedCharacters) {
    EXPECT_EQ(KeyNames::name(36), "\u21A9");
    EXPECT_EQ(KeyNames::name(48), "\u21E5");
    EXPECT_EQ(KeyNames::name(51), "\u232B");
    EXPECT_EQ(KeyNames::name(53), "\u238B");
    EXPECT_EQ(KeyNames::name(115), "\u2196");
    EXPECT_EQ(KeyNames::name(116), "\u21DE");
    EXPECT_EQ(KeyNames::name(117), "\u2326");
    EXPECT_EQ(KeyNames::name(119), "\u2198");
    EXPECT_EQ(KeyNames::name(121), "\u21DF");
    EXPECT_EQ(KeyNames::name(123), "\u2190");
    EXPECT_EQ(KeyNames::name(124), "\u2192");
    EXPECT_EQ(KeyNames::name(125), "\u2193");
    EXPECT_EQ(KeyNames::name(126), "\u2191");
}

TEST(KeyNamesTest, TableIsBuiltOnce) {
    EXPECT_EQ(&KeyNames::map(), &KeyNames::map());
}

} // namespace
} // namespace glidemap
