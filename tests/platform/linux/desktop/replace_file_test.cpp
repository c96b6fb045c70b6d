#include "kit/temporary_folder.h"
#include "platform/linux/desktop/replace_file.h"

#include <gtest/gtest.h>

#include <iterator>

namespace glidemap {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::TemporaryFolder;

auto entriesOf(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

TEST(ReplaceFileTest, CreatesParentFoldersAndLeavesNoTemporaryFile) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "a" / "b" / "file";
    EXPECT_FALSE(replaceFile(file, "first"));
    EXPECT_EQ(contentOf(file), "first");
    EXPECT_FALSE(replaceFile(file, "second"));
    EXPECT_EQ(contentOf(file), "second");
    EXPECT_EQ(entriesOf(file.parent_path()), 1);
}

TEST(ReplaceFileTest, FollowsALinkToAFile) {
    const TemporaryFolder folder;
    const auto kept = folder.write("kept/file", "old");
    fs::create_symlink(kept, folder.path() / "link");
    EXPECT_FALSE(replaceFile(folder.path() / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "link"));
    EXPECT_EQ(contentOf(kept), "new");
}

TEST(ReplaceFileTest, ReplacesADanglingLinkOrALinkToADevice) {
    const TemporaryFolder folder;
    for (const char* const target : {"/dev/null", "/nowhere/at/all"}) {
        const auto link = folder.path() / "link";
        fs::remove(link);
        fs::create_symlink(target, link);
        EXPECT_FALSE(replaceFile(link, "content"));
        EXPECT_FALSE(fs::is_symlink(link));
        EXPECT_EQ(contentOf(link), "content");
    }
}

TEST(ReplaceFileTest, FailureReturnsTheErrorAndKeepsTheOldContent) {
    const TemporaryFolder folder;
    const auto file = folder.write("file", "old");
    EXPECT_EQ(replaceFile(file / "below", "new"), std::errc::not_a_directory);
    fs::create_directories(folder.path() / "taken" / "by a folder");
    EXPECT_EQ(replaceFile(folder.path() / "taken", "new"), std::errc::is_a_directory);
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(entriesOf(folder.path()), 2);
}

} // namespace
} // namespace glidemap
