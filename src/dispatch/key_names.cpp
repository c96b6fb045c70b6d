#include "dispatch/key_names.h"

namespace glidemap::KeyNames {

const std::map<std::uint16_t, std::string_view>& map() {
    // The codes follow the keyboard's hardware layout, not the alphabet or the digits.
    static const std::map<std::uint16_t, std::string_view> names = {
        {0, "A"},      {1, "S"},     {2, "D"},     {3, "F"},     {4, "H"},      {5, "G"},
        {6, "Z"},      {7, "X"},     {8, "C"},     {9, "V"},     {11, "B"},     {12, "Q"},
        {13, "W"},     {14, "E"},    {15, "R"},    {16, "Y"},    {17, "T"},     {18, "1"},
        {19, "2"},     {20, "3"},    {21, "4"},    {22, "6"},    {23, "5"},     {24, "="},
        {25, "9"},     {26, "7"},    {27, "-"},    {28, "8"},    {29, "0"},     {30, "]"},
        {31, "O"},     {32, "U"},    {33, "["},    {34, "I"},    {35, "P"},     {36, "↩"},
        {37, "L"},     {38, "J"},    {39, "'"},    {40, "K"},    {41, ";"},     {42, "\\"},
        {43, ","},     {44, "/"},    {45, "N"},    {46, "M"},    {47, "."},     {48, "⇥"},
        {49, "Space"}, {50, "`"},    {51, "⌫"},    {53, "⎋"},    {96, "F5"},    {97, "F6"},
        {98, "F7"},    {99, "F3"},   {100, "F8"},  {101, "F9"},  {103, "F11"},  {105, "F13"},
        {107, "F14"},  {109, "F10"}, {111, "F12"}, {113, "F15"}, {114, "Help"}, {115, "↖"},
        {116, "⇞"},    {117, "⌦"},   {118, "F4"},  {119, "↘"},   {120, "F2"},   {121, "⇟"},
        {122, "F1"},   {123, "←"},   {124, "→"},   {125, "↓"},   {126, "↑"},
    };
    return names;
}

std::string name(std::uint16_t keyCode) {
    const auto found = map().find(keyCode);
    return found != map().end() ? std::string(found->second) : "Key " + std::to_string(keyCode);
}

} // namespace glidemap::KeyNames
