#include "kit/temporary_folder.h"
#include "platform/linux/desktop/exec_line.h"

#include <gmock/gmock.h>

namespace glidemap {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ExecLineTest, QuotesProgramPathsThatContainSpecialCharacters) {
    struct Row {
        const char* program;
        const char* line;
    };
    const Row rows[] = {
        {"/usr/bin/glidemap", "/usr/bin/glidemap"},
        {"/opt/Glide-map_1.0/glidemap", "/opt/Glide-map_1.0/glidemap"},
        {"/opt/触控/glidemap", "/opt/触控/glidemap"},
        {"/home/a user/glidemap", "\"/home/a user/glidemap\""},
        {"/home/it's/glidemap", "\"/home/it's/glidemap\""},
        {"/cash$HOME/glidemap", "\"/cash\\$HOME/glidemap\""},
        {"/tick`id`/glidemap", "\"/tick\\`id\\`/glidemap\""},
        {"/say\"so\"/glidemap", "\"/say\\\"so\\\"/glidemap\""},
        {"/back\\slash/glidemap", "\"/back\\\\slash/glidemap\""},
        {"/100%/glidemap", "/100%%/glidemap"},
        {"/100% %u/glidemap", "\"/100%% %%u/glidemap\""},
        {"/a;b&c|d/glidemap", "\"/a;b&c|d/glidemap\""},
        {"/<a>(b)*?#~/glidemap", "\"/<a>(b)*?#~/glidemap\""},
        {"/tab\tand\nline/glidemap", "\"/tab\tand\nline/glidemap\""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(execLineOf(row.program), row.line);
        EXPECT_THAT(wordsOfExecLine(row.line), ElementsAre(row.program));
    }
}

TEST(ExecLineTest, UnquotesWordsAndExpandsFieldCodesToNothing) {
    EXPECT_THAT(wordsOfExecLine(""), IsEmpty());
    EXPECT_THAT(wordsOfExecLine("   "), IsEmpty());
    EXPECT_THAT(wordsOfExecLine("gedit %U"), ElementsAre("gedit"));
    EXPECT_THAT(wordsOfExecLine("  glidemap --quiet %U"), ElementsAre("glidemap", "--quiet"));
    EXPECT_THAT(wordsOfExecLine("\"/opt/my app/run\" --file=%f %F"),
                ElementsAre("/opt/my app/run", "--file="));
    EXPECT_THAT(wordsOfExecLine("'/a b/glidemap'"), ElementsAre("/a b/glidemap"));
    EXPECT_THAT(wordsOfExecLine("a \"\" b"), ElementsAre("a", "", "b"));
    EXPECT_THAT(wordsOfExecLine("\"\""), ElementsAre(""));
    EXPECT_THAT(wordsOfExecLine(R"(a "with \"quotes\"" b\ c)"),
                ElementsAre("a", "with \"quotes\"", "b c"));
    EXPECT_THAT(wordsOfExecLine("say \"%U\" 100%"), ElementsAre("say", "", "100%"));
    EXPECT_THAT(wordsOfExecLine("\"/opt/100%% a/run\" %%U %% %U"),
                ElementsAre("/opt/100% a/run", "%U", "%"));
    EXPECT_THAT(wordsOfExecLine("run # twice"), ElementsAre("run"));
}

TEST(ExecLineTest, ReturnsAnErrorAndNoWordsForAnUnfinishedLine) {
    for (const char* const line : {"\"/never/closed", "run \"it", "run 'it", "run it\\"}) {
        EXPECT_THAT(wordsOfExecLine(line), IsEmpty()) << line;
        EXPECT_NE(splitLikeAShell(line).error, "") << line;
    }
    EXPECT_EQ(splitLikeAShell("run it").error, "");
}

const FieldValues values{"It's Some", "an icon", "/a path/some.desktop",
                         "https://example.org/?a=$(b)"};

TEST(FieldCodes, InsertsAndQuotesValues) {
    EXPECT_EQ(withFieldCodes("cmd %u", values), "cmd 'https://example.org/?a=$(b)'");
    EXPECT_EQ(withFieldCodes("cmd %U", values), "cmd 'https://example.org/?a=$(b)'");
    EXPECT_EQ(withFieldCodes("cmd %c", values), "cmd 'It'\\''s Some'");
    EXPECT_EQ(withFieldCodes("cmd %i", values), "cmd --icon 'an icon'");
    EXPECT_EQ(withFieldCodes("cmd %k", values), "cmd '/a path/some.desktop'");
    EXPECT_EQ(withFieldCodes("cmd --url=%u", values), "cmd --url='https://example.org/?a=$(b)'");
}

TEST(FieldCodes, FileCodesExpandToAPath) {
    EXPECT_EQ(withFieldCodes("cmd %f", {"", "", "", "file:///a%20b"}), "cmd '/a b'");
    EXPECT_EQ(withFieldCodes("cmd %F", {"", "", "", "file:///a%20b"}), "cmd '/a b'");
    EXPECT_EQ(withFieldCodes("cmd %f", values), "cmd "); // the values contain no file
}

TEST(FieldCodes, MissingValuesExpandToNothing) {
    for (const char code : std::string("uUfFick")) {
        EXPECT_EQ(withFieldCodes(std::string("cmd %") + code, {}), "cmd ");
    }
}

TEST(FieldCodes, DropsDeprecatedCodesAndKeepsLiteralPercentSigns) {
    for (const char code : std::string("dDnNvmx")) {
        EXPECT_EQ(withFieldCodes(std::string("cmd %") + code + " more", values), "cmd  more");
    }
    EXPECT_EQ(withFieldCodes("cmd 100%%", values), "cmd 100%");
    EXPECT_EQ(withFieldCodes("cmd %%u", values), "cmd %u");
    EXPECT_EQ(withFieldCodes("cmd %", values), "cmd %");
}

TEST(ExecLineTest, FindsExecutableFilesOnlyByAbsolutePathOrByNameInPATH) {
    const TemporaryFolder folder;
    const auto program = folder.writeProgram("bin/glidemap");
    const auto later = folder.writeProgram("later/glidemap");
    folder.write("bin/data", "");
    const std::string path = (folder.path() / "none").string() +
                             ":relative::" + program.parent_path().string() + ":" +
                             later.parent_path().string();
    struct Row {
        std::string program;
        std::optional<std::filesystem::path> found;
    };
    const Row rows[] = {
        {program.string(), program},
        {later.string(), later},
        {"glidemap", program},
        {"bin/glidemap", std::nullopt}, // relative to an unknown folder
        {"./glidemap", std::nullopt},
        {"data", std::nullopt}, // not executable
        {(folder.path() / "bin/data").string(), std::nullopt},
        {(folder.path() / "bin").string(), std::nullopt}, // a folder
        {(folder.path() / "bin/other").string(), std::nullopt},
        {"other", std::nullopt},
        {"", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(findProgram(row.program, path), row.found) << row.program;
    }
    EXPECT_EQ(findProgram("glidemap", ""), std::nullopt);
}

} // namespace
} // namespace glidemap
