#include "platform/linux/applications/command_line.h"

#include <gmock/gmock.h>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CommandLine, UnquotesWordsAndOmitsFieldCodes) {
    EXPECT_THAT(wordsOfExec(""), IsEmpty());
    EXPECT_THAT(wordsOfExec("   "), IsEmpty());
    EXPECT_THAT(wordsOfExec("gedit %U"), ElementsAre("gedit"));
    EXPECT_THAT(wordsOfExec("\"/opt/my app/run\" --file=%f %F"),
                ElementsAre("/opt/my app/run", "--file=%f"));
    EXPECT_THAT(wordsOfExec("a \"\" b"), ElementsAre("a", "", "b"));
    EXPECT_THAT(wordsOfExec(R"(a "with \"quotes\"" b\ c)"),
                ElementsAre("a", "with \"quotes\"", "b c"));
    EXPECT_THAT(wordsOfExec("say \"%U\" 100%"), ElementsAre("say", "%U", "100%"));
    EXPECT_THAT(wordsOfExec("\"/opt/100%% a/run\" %%U %% %U"),
                ElementsAre("/opt/100% a/run", "%U", "%"));
}

TEST(CommandLine, ReturnsNoWordsForAnUnterminatedQuote) {
    EXPECT_THAT(wordsOfExec("run \"it"), IsEmpty());
    EXPECT_THAT(wordsOfExec("run it\\"), ElementsAre("run", "it\\"));
}

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
        EXPECT_EQ(programOf(wordsOfExec(row.line)), row.program) << row.line;
}

TEST(CommandLine, FlatpakApplicationIsFound) {
    EXPECT_EQ(flatpakOf(wordsOfExec("/usr/bin/flatpak run --branch=stable --command=firefox "
                                    "--file-forwarding org.mozilla.firefox @@u %u @@")),
              "org.mozilla.firefox");
    EXPECT_EQ(flatpakOf(wordsOfExec("env A=b flatpak run org.example.App")), "org.example.App");
    EXPECT_EQ(flatpakOf(wordsOfExec("flatpak run --verbose")), "");
    EXPECT_EQ(flatpakOf(wordsOfExec("flatpak update org.example.App")), "");
    EXPECT_EQ(flatpakOf(wordsOfExec("flatpak")), "");
    EXPECT_EQ(flatpakOf(wordsOfExec("gedit run org.example.App")), "");
}

TEST(CommandLine, SteamGameIsFound) {
    EXPECT_EQ(steamGameOf(wordsOfExec("steam steam://rungameid/440")), "440");
    EXPECT_EQ(steamGameOf(wordsOfExec("env LANG=C steam -silent steam://rungameid/12")), "12");
    EXPECT_EQ(steamGameOf(wordsOfExec("steam %U")), "");
}

TEST(CommandLine, FileNameIsTheTextAfterTheLastSlash) {
    EXPECT_EQ(fileNameOf("/usr/bin/mpv"), "mpv");
    EXPECT_EQ(fileNameOf("mpv"), "mpv");
    EXPECT_EQ(fileNameOf("/usr/bin/"), "");
    EXPECT_EQ(fileNameOf(""), "");
}

} // namespace
} // namespace glidemap
