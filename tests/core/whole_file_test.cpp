#include "core/whole_file.h"
#include "kit/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <iterator>
#include <thread>

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
    fs::path saving = folder / ".file.saving";
};

struct AccessRow {
    const char* name;
    FileAccess access;
    mode_t umask;
    mode_t expected;
};

const AccessRow accessRows[] = {
    {"owner only", FileAccess::ownerOnly, 022, 0600},
    {"owner only, with any umask", FileAccess::ownerOnly, 0777, 0600},
    {"ordinary", FileAccess::ordinary, 022, 0644},
    {"ordinary with a group umask", FileAccess::ordinary, 002, 0664},
    {"ordinary with a private umask", FileAccess::ordinary, 077, 0600},
};

TEST_F(WholeFileTest, FileHasTheRequestedPermissions) {
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

TEST_F(WholeFileTest, SymbolicLinkIsReplacedAndItsTargetIsKept) {
    const auto kept = temporary.write("kept", "old");
    fs::create_symlink(kept, file);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_FALSE(fs::is_symlink(file));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(contentOf(kept), "old");
}

TEST_F(WholeFileTest, FailureReturnsTheSystemErrorAndKeepsTheOldContent) {
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

int lockOf(const fs::path& path, int flags = O_RDONLY) {
    const int held = open(path.c_str(), flags, 0600);
    EXPECT_EQ(flock(held, LOCK_EX), 0);
    return held;
}

// Counts this process's descriptors of the file. Uses stat() with the descriptors' paths, because
// fstat() on another thread's descriptor would be a data race with that thread's open() and
// close().
int timesOpen(const fs::path& wantedPath) {
    constexpr int moreThanThereAre = 256;
    struct stat wanted {};
    EXPECT_EQ(stat(wantedPath.c_str(), &wanted), 0);
    int count = 0;
    for (int descriptor = 0; descriptor < moreThanThereAre; ++descriptor) {
        struct stat status {};
        const std::string path = "/dev/fd/" + std::to_string(descriptor);
        count += stat(path.c_str(), &status) == 0 && status.st_dev == wanted.st_dev &&
                         status.st_ino == wanted.st_ino
                     ? 1
                     : 0;
    }
    return count;
}

TEST_F(WholeFileTest, LockOnTheFolderDoesNotBlockAWriter) {
    const int other = lockOf(folder, O_RDONLY | O_DIRECTORY);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_EQ(contentOf(file), "new");
    close(other);
}

TEST_F(WholeFileTest, FailsAfterWaitingOneSecondForALockedFile) {
    temporary.write("file", "old");
    const int other = lockOf(saving, O_RDWR | O_CREAT);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(writeWhole(file, "new", FileAccess::ownerOnly), std::errc::operation_would_block);
    EXPECT_GE(std::chrono::steady_clock::now() - start, maxWaitForWriter);
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_TRUE(fs::exists(saving)) << "it is the other writer's";
    close(other);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(entries(), 1);
}

TEST_F(WholeFileTest, WaitsForAConcurrentWriter) {
    for (const bool renames : {true, false}) {
        const int other = lockOf(saving, O_RDWR | O_CREAT);
        std::atomic<bool> isReleased = false;
        std::atomic<bool> isDone = false;
        std::error_code error;
        std::thread writer([&] {
            error = writeWhole(file, "new", FileAccess::ownerOnly);
            EXPECT_TRUE(isReleased);
            isDone = true;
        });
        while (timesOpen(saving) < 2 && !isDone) { // the writer has not opened the file yet
            std::this_thread::yield();
        }
        if (renames) {
            fs::rename(saving, file);
        }
        isReleased = true;
        close(other);
        writer.join();
        EXPECT_FALSE(error) << error.message();
        EXPECT_EQ(contentOf(file), "new");
        EXPECT_EQ(entries(), 1);
    }
}

TEST_F(WholeFileTest, LockThatAnotherUserCouldHoldIsIgnoredAfterOneSecond) {
    const int other = lockOf(saving, O_RDWR | O_CREAT);
    fs::permissions(saving, fs::perms::all);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(entries(), 1);
    close(other);
}

TEST_F(WholeFileTest, EmptyFolderWithTheTemporaryNameIsRemoved) {
    fs::create_directory(saving);
    EXPECT_FALSE(writeWhole(file, "new", FileAccess::ownerOnly));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(entries(), 1);
}

TEST_F(WholeFileTest, NonEmptyFolderWithTheTemporaryNameIsKeptAndAvoided) {
    fs::create_directories(saving / "kept");
    fs::create_directories(fs::path(saving.native() + ".2") / "kept");
    for (const char* const content : {"first", "second"}) {
        EXPECT_FALSE(writeWhole(file, content, FileAccess::ownerOnly));
        EXPECT_EQ(contentOf(file), content);
    }
    EXPECT_EQ(entries(), 3);
    EXPECT_TRUE(fs::exists(saving / "kept"));
}

TEST_F(WholeFileTest, PipeOrSymbolicLinkWithTheTemporaryNameIsRemoved) {
    const auto kept = temporary.write("kept", "untouched");
    ASSERT_EQ(mkfifo(saving.c_str(), 0600), 0);
    EXPECT_FALSE(writeWhole(file, "first", FileAccess::ownerOnly));
    fs::create_symlink(kept, saving);
    EXPECT_FALSE(writeWhole(file, "second", FileAccess::ordinary));
    EXPECT_EQ(contentOf(file), "second");
    EXPECT_EQ(contentOf(kept), "untouched");
    EXPECT_EQ(entries(), 2);
}

} // namespace
} // namespace glidemap
