#include "core/whole_file.h"
#include "kit/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <iterator>

namespace glidemap {
namespace {

namespace fs = std::filesystem;
using test::contentOf;

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

class WholeFileTest : public testing::Test {
protected:
    auto entries() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    test::TemporaryFolder temporary;
    fs::path folder = temporary.path();
    fs::path file = folder / "file";
};

struct AccessRow {
    const char* name;
    FileAccess access;
    mode_t umask;
    mode_t expected;
};

const AccessRow accessRows[] = {
    {"its owner's", FileAccess::ownerOnly, 022, 0600},
    {"its owner's, whatever the umask", FileAccess::ownerOnly, 0777, 0600},
    {"ordinary", FileAccess::ordinary, 022, 0644},
    {"ordinary for a group at work", FileAccess::ordinary, 002, 0664},
    {"ordinary for who keeps all private", FileAccess::ordinary, 077, 0600},
};

TEST_F(WholeFileTest, OthersMayDoWithItWhatIsAskedFor) {
    for (const AccessRow& row : accessRows) {
        temporary.write("file", "an older one, open to all");
        fs::permissions(file, fs::perms::all);
        const mode_t before = umask(row.umask);
        EXPECT_FALSE(writeWhole(file, row.name, row.access)) << row.name;
        umask(before);
        EXPECT_EQ(modeOf(file), row.expected) << row.name;
        EXPECT_EQ(contentOf(file), row.name);
        EXPECT_EQ(entries(), 1);
    }
}

TEST_F(WholeFileTest, ALinkIsReplacedAndWhatItPointsAtIsNot) {
    const auto kept = temporary.write("kept", "old");
    fs::create_symlink(kept, file);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_FALSE(fs::is_symlink(file));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(contentOf(kept), "old");
}

TEST_F(WholeFileTest, AFailureHasTheSystemsReasonAndLeavesWhatWasThere) {
    temporary.write("file", "old");
    fs::create_directories(folder / "taken" / "by a folder");
    const auto write = [](const fs::path& path) {
        return writeWhole(path, "new", FileAccess::ownerOnly);
    };
    EXPECT_EQ(write(folder / "no" / "file"), std::errc::no_such_file_or_directory);
    EXPECT_EQ(write(file / "below"), std::errc::not_a_directory);
    EXPECT_EQ(write(folder / "taken"), std::errc::is_a_directory);
    EXPECT_EQ(write(folder / std::string(300, 'x')), std::errc::filename_too_long);
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_EQ(entries(), 2);
}

TEST_F(WholeFileTest, WhileAnotherWriterHasTheFolderItSaysSo) {
    const int other = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_EQ(writeWhole(file, "new", FileAccess::ordinary),
              std::errc::resource_unavailable_try_again);
    EXPECT_EQ(entries(), 0);
    close(other);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ordinary));
}

} // namespace
} // namespace glidemap
