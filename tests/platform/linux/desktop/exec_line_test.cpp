#include "kit/temporary_folder.h"
#include "platform/linux/desktop/exec_line.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using test::TemporaryFolder;

TEST(ExecLineTest, SpecialCharactersOfTheShellAndTheEntryAreQuoted) {
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
        EXPECT_EQ(programOfExecLine(row.line), row.program);
    }
}

TEST(ExecLineTest, ProgramIsTheFirstWord) {
    struct Row {
        const char* line;
        std::optional<std::string> program;
    };
    const Row rows[] = {
        {"glidemap", "glidemap"},
        {"  glidemap --quiet %U", "glidemap"},
        {"\"/a b/glidemap\" --quiet", "/a b/glidemap"},
        {"'/a b/glidemap'", "/a b/glidemap"},
        {"env GDK_BACKEND=x11 glidemap", "env"},
        {"", std::nullopt},
        {"   ", std::nullopt},
        {"\"/never/closed", std::nullopt},
        {"\"\"", ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(programOfExecLine(row.line), row.program) << row.line;
    }
}

TEST(ExecLineTest, FindsOnlyExecutableFilesInAbsolutePathFolders) {
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
