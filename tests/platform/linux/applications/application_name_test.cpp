#include "platform/linux/applications/application_name.h"

#include <gtest/gtest.h>

#include <string>

namespace glidemap {
namespace {

TEST(ApplicationName, MakesATitleFromAnIdentifier) {
    struct Row {
        const char* identifier;
        const char* name;
    };
    const Row rows[] = {
        {"", ""},
        {"my-tool", "My Tool"},
        {"my_other-tool", "My Other Tool"},
        {"xterm", "Xterm"},
        {"VLC media player", "VLC Media Player"},
        {"org.example.Viewer", "Viewer"},
        {"org.example.my-viewer", "My Viewer"},
        {"notepad.exe", "Notepad.exe"},
        {"org.example.", "Org.example."},
        {"steam_app_440", "Steam App 440"},
        {"--", "  "},
        {"écran", "écran"},
        {"微信", "微信"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(nameFromIdentifier(row.identifier), row.name) << row.identifier;
}

TEST(ApplicationName, LastComponentIsEmptyUnlessTheTextIsAReverseDNSName) {
    EXPECT_EQ(lastComponent("org.kde.konsole"), "konsole");
    EXPECT_EQ(lastComponent("org.gnome.Shell.Extensions"), "Extensions");
    EXPECT_EQ(lastComponent("konsole"), "");
    EXPECT_EQ(lastComponent("notepad.exe"), "");
    EXPECT_EQ(lastComponent("Version 1.2.3 of it"), "");
    EXPECT_EQ(lastComponent("a.b."), "");
    EXPECT_EQ(lastComponent(""), "");
}

TEST(ApplicationName, IdentifierIsSanitized) {
    EXPECT_EQ(cleanIdentifier("my-tool"), "my-tool");
    EXPECT_EQ(cleanIdentifier("  padded "), "padded");
    EXPECT_EQ(cleanIdentifier("   "), "");
    EXPECT_EQ(cleanIdentifier("tab\tand\nline\x7f"), "tabandline");
    EXPECT_EQ(cleanIdentifier("\xe9"
                              "cran"),
              "écran")
        << "Latin-1";
    EXPECT_EQ(cleanIdentifier("微信"), "微信");
    EXPECT_EQ(cleanIdentifier(std::string_view("a\0b", 3)), "ab");
}

TEST(ApplicationName, TruncatesALongIdentifierBetweenCharacters) {
    EXPECT_EQ(cleanIdentifier(std::string(256, 'a')), std::string(256, 'a'));
    EXPECT_EQ(cleanIdentifier(std::string(1'000'000, 'a')), std::string(256, 'a'));
    EXPECT_EQ(cleanIdentifier(std::string(255, 'a') + "é"), std::string(255, 'a'));
    EXPECT_EQ(cleanIdentifier(std::string(255, 'a') + " b"), std::string(255, 'a'));
    for (const std::size_t letters : {1023U, 1022U, 1021U}) {
        const std::string latin(letters, 'a');
        EXPECT_EQ(cleanIdentifier(latin + "微信微信"), latin.substr(0, 256));
        EXPECT_EQ(cleanIdentifier("微" + latin + "微信微信"), "微" + latin.substr(0, 253));
    }
    EXPECT_EQ(cleanIdentifier(std::string(254, 'a') + "é"), std::string(254, 'a') + "é");
    EXPECT_EQ(cleanIdentifier(std::string(10'000, '\xff')).size(), 256U);
}

} // namespace
} // namespace glidemap
