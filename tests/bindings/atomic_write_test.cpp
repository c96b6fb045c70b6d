#include "bindings/atomic_write.h"
#include "support_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <thread>

namespace glidemap {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class AtomicWriteTest : public testing::Test {
protected:
    static mode_t modeOf(const fs::path& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    SupportFolder temporary;
    fs::path folder = temporary.path();
    fs::path file = folder / "file";
};

TEST_F(AtomicWriteTest, CreatesAFileForTheOwnerOnlyAndLeavesNoTemporaryFile) {
    EXPECT_FALSE(writeAtomically(file, "content"));
    EXPECT_EQ(contentOf(file), "content");
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

TEST_F(AtomicWriteTest, ReplacesAnExistingFile) {
    using namespace std::string_literals;
    writeContent(file, "a longer content than the new one");
    fs::permissions(file, fs::perms::all);
    for (const std::string& content : {"new"s, ""s, "a\0b"s, std::string(3'000'000, 'x')}) {
        EXPECT_FALSE(writeAtomically(file, content));
        EXPECT_EQ(contentOf(file), content);
    }
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

TEST_F(AtomicWriteTest, OwnerCanReadTheFileWithEveryUmask) {
    const mode_t before = umask(0777);
    EXPECT_FALSE(writeAtomically(file, "content"));
    umask(before);
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(AtomicWriteTest, ReaderThatHasTheFileOpenReadsTheOldContent) {
    writeContent(file, "old");
    std::ifstream reader(file);
    EXPECT_FALSE(writeAtomically(file, "new"));
    std::string seen;
    reader >> seen;
    EXPECT_EQ(seen, "old");
}

TEST_F(AtomicWriteTest, DeviceIsNotReplaced) {
    struct stat null {};
    ASSERT_EQ(stat("/dev/null", &null), 0);
    if (mknod((folder / "null").c_str(), S_IFCHR | 0600, null.st_rdev) != 0) {
        GTEST_SKIP() << "only root may make a device";
    }
    fs::create_symlink("null", file);
    EXPECT_TRUE(writeAtomically(file, "content"));
    EXPECT_TRUE(fs::is_character_file(folder / "null"));
}

TEST_F(AtomicWriteTest, RelativePathIsResolvedInTheWorkingDirectory) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    EXPECT_FALSE(writeAtomically("file", "content"));
    fs::current_path(before);
    EXPECT_EQ(contentOf(file), "content");
}

struct Link {
    const char* name;
    // Each path is relative to the folder "links"; "" stands for the real file's absolute path.
    const char* target;
};

const Link links[] = {
    {"relative", "../elsewhere/real"},
    {"absolute", ""},
    {"to a link", "second"},
    {"through a linked folder", "there/real"},
};

TEST_F(AtomicWriteTest, SymbolicLinkIsKeptAndItsTargetIsReplaced) {
    const fs::path elsewhere = folder / "elsewhere";
    for (const bool exists : {true, false}) {
        for (const Link& row : links) {
            SCOPED_TRACE(row.name);
            fs::remove_all(folder / "links");
            fs::remove_all(elsewhere);
            fs::create_directory(folder / "links");
            fs::create_directory(elsewhere);
            fs::create_symlink("../elsewhere", folder / "links" / "there");
            fs::create_symlink("there/real", folder / "links" / "second");
            const fs::path target = *row.target != '\0' ? fs::path(row.target) : elsewhere / "real";
            const fs::path link = folder / "links" / "bindings.json";
            fs::create_symlink(target, link);
            if (exists) {
                writeContent(elsewhere / "real", "old");
            }
            EXPECT_FALSE(writeAtomically(link, "new"));
            EXPECT_EQ(fs::read_symlink(link), target);
            EXPECT_EQ(contentOf(elsewhere / "real"), "new");
            EXPECT_EQ(namesIn(elsewhere), Names{"real"});
            EXPECT_EQ(namesIn(folder / "links"), (Names{"bindings.json", "second", "there"}));
        }
    }
}

TEST_F(AtomicWriteTest, FailsOnCyclicSymbolicLinksAndKeepsThem) {
    fs::create_symlink("second", file);
    fs::create_symlink("file", folder / "second");
    EXPECT_EQ(writeAtomically(file, "content"), std::errc::too_many_symbolic_link_levels);
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(namesIn(folder), (Names{"file", "second"}));
}

TEST_F(AtomicWriteTest, FailsIfTheFolderIsMissing) {
    EXPECT_TRUE(writeAtomically(folder / "no" / "file", "content"));
    writeContent(file, "");
    EXPECT_TRUE(writeAtomically(file / "file", "content"));
    EXPECT_TRUE(writeAtomically("", "content"));
    EXPECT_TRUE(writeAtomically(folder / "", "content"));
}

TEST_F(AtomicWriteTest, FailsIfThePathIsAFolderAndKeepsTheFolder) {
    fs::create_directory(file);
    EXPECT_TRUE(writeAtomically(file, "content"));
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

TEST_F(AtomicWriteTest, PipeIsReplacedWithoutWaitingForAReader) {
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(writeAtomically(file, "content"));
    EXPECT_TRUE(fs::is_regular_file(file));
    EXPECT_EQ(contentOf(file), "content");
}

TEST_F(AtomicWriteTest, RemovesTheTemporaryFileOfAKilledWriter) {
    writeContent(file, "old");
    writeContent(folder / ".file.saving", "half of someth");
    EXPECT_FALSE(writeAtomically(file, "new"));
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

TEST_F(AtomicWriteTest, SymbolicLinkWithTheTemporaryNameIsNotFollowed) {
    writeContent(folder / "innocent", "untouched");
    fs::create_symlink("innocent", folder / ".file.saving");
    EXPECT_FALSE(writeAtomically(file, "new"));
    EXPECT_EQ(contentOf(folder / "innocent"), "untouched");
    EXPECT_EQ(namesIn(folder), (Names{"file", "innocent"}));
}

// Limits the size of this process's files, so that a write fails in the middle of a file, as on a
// full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit now{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &now);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    void (*handler)(int);
    rlimit before{};
};

TEST_F(AtomicWriteTest, FailedWriteKeepsTheOldContentAndLeavesNoTemporaryFile) {
    const std::string content(100'000, 'x');
    EXPECT_FALSE(writeAtomically(file, "old"));
    for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{65'536}, rlim_t{99'999}}) {
        std::error_code failure;
        {
            const FileSizeLimit limited(room);
            failure = writeAtomically(file, content);
        }
        EXPECT_EQ(failure, std::errc::file_too_large) << room;
        EXPECT_EQ(contentOf(file), "old") << room;
        EXPECT_EQ(namesIn(folder), Names{"file"}) << room;
    }
    const FileSizeLimit limited(content.size());
    EXPECT_FALSE(writeAtomically(file, content));
}

TEST_F(AtomicWriteTest, ReaderAlwaysFindsCompleteContent) {
    const std::string contents[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    ASSERT_FALSE(writeAtomically(file, contents[0]));
    std::atomic<bool> done = false;
    std::atomic<int> reads = 0;
    std::thread reader([&] {
        while (!done) {
            const std::string seen = contentOf(file);
            EXPECT_TRUE(seen == contents[0] || seen == contents[1]) << seen.size();
            ++reads;
        }
    });
    for (int index = 1; reads < 40; index = 1 - index) {
        EXPECT_FALSE(writeAtomically(file, contents[index]));
    }
    done = true;
    reader.join();
}

// A writer may fail occasionally if the other writer holds the lock at every attempt. Neither
// installs a file that the other writer has only partly written.
TEST_F(AtomicWriteTest, ConcurrentWritersDoNotMixContent) {
    const std::string contents[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    ASSERT_FALSE(writeAtomically(file, contents[0]));
    std::atomic<int> written[2] = {0, 0};
    const auto write = [&](int which) {
        while (written[0] < 30 || written[1] < 30) {
            written[which] += writeAtomically(file, contents[which]) ? 0 : 1;
        }
    };
    std::thread first(write, 0);
    std::thread second(write, 1);
    while (written[0] < 30 || written[1] < 30) {
        const std::string seen = contentOf(file);
        EXPECT_TRUE(seen == contents[0] || seen == contents[1]) << seen.size();
    }
    first.join();
    second.join();
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

} // namespace
} // namespace glidemap
