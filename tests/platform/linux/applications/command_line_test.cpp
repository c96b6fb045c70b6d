#include "platform/linux/applications/command_line.h"
#include "platform/linux/desktop/exec_line.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(CommandLine, FindsTheProgramBehindWrappers) {
    struct Row {
        const char* line;
        const char* program;
    };
    const Row rows[] = {
        {"", ""},
        {"gedit", "gedit"},
        {"/usr/share/code/code --open-url", "code"},
        {"env GDK_BACKEND=x11 LANG=C /usr/bin/gimp-2.10 -n", "gimp-2.10"},
        {"env", ""},
        {"env A=b", ""},
        {"nohup setsid mpv", "mpv"},
        {"pkexec /usr/sbin/gparted", "gparted"},
        {"python3 /usr/bin/virt-manager", "virt-manager"},
        {"/usr/bin/python3.11 -u /usr/share/meld/meld.py --new", "meld.py"},
        {"python3 -m idlelib", ""},
        {"python3", ""},
        {"/usr/bin/bash /opt/tool/run.sh", "run.sh"},
        {"sh -c 'exec emacs'", ""},
        {"gjs-console /usr/bin/gnome-weather", "gnome-weather"},
        {"java -Xmx512M -jar /usr/share/FreeCol.jar", "FreeCol.jar"},
        {"java -cp /usr/share/a.jar org.example.Main", ""},
        {"java -jar", ""},
        {"snap run code", "code"},
        {"snap run --shell code", "code"},
        {"/snap/bin/firefox", "firefox"},
        {"snap refresh", ""},
        {"/usr/bin/flatpak run org.mozilla.firefox", ""},
        {"/usr/bin/", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(programOf(wordsOfExecLine(row.line)), row.program) << row.line;
}

TEST(CommandLine, FlatpakApplicationIsFound) {
    EXPECT_EQ(flatpakOf(wordsOfExecLine("/usr/bin/flatpak run --branch=stable --command=firefox "
                                        "--file-forwarding org.mozilla.firefox @@u %u @@")),
              "org.mozilla.firefox");
    EXPECT_EQ(flatpakOf(wordsOfExecLine("env A=b flatpak run org.example.App")), "org.example.App");
    EXPECT_EQ(flatpakOf(wordsOfExecLine("flatpak run --verbose")), "");
    EXPECT_EQ(flatpakOf(wordsOfExecLine("flatpak update org.example.App")), "");
    EXPECT_EQ(flatpakOf(wordsOfExecLine("flatpak")), "");
    EXPECT_EQ(flatpakOf(wordsOfExecLine("gedit run org.example.App")), "");
}

TEST(CommandLine, SteamGameIsFound) {
    EXPECT_EQ(steamGameOf(wordsOfExecLine("steam steam://rungameid/440")), "440");
    EXPECT_EQ(steamGameOf(wordsOfExecLine("env LANG=C steam -silent steam://rungameid/12")), "12");
    EXPECT_EQ(steamGameOf(wordsOfExecLine("steam %U")), "");
}

TEST(CommandLine, FileNameIsTheTextAfterTheLastSlash) {
    EXPECT_EQ(fileNameOf("/usr/bin/mpv"), "mpv");
    EXPECT_EQ(fileNameOf("mpv"), "mpv");
    EXPECT_EQ(fileNameOf("/usr/bin/"), "");
    EXPECT_EQ(fileNameOf(""), "");
}

} // namespace
} // namespace glidemap
