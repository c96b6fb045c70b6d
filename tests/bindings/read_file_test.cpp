#include "bindings/read_file.h"
#include "support_folder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <thread>

namespace glidemap {
namespace {

constexpr std::size_t limit = 1'000'000;

class ReadFileTest : public testing::Test {
protected:
    SupportFolder folder;
    std::filesystem::path file = folder.path() / "file";
};

TEST_F(ReadFileTest, ReturnsTheCompleteContent) {
    using namespace std::string_literals;
    for (const std::string& content : {""s, "a"s, "\0\n\xFF"s, std::string(65'536, 'x'),
                                       std::string(65'537, 'x'), std::string(limit, 'x')}) {
        writeContent(file, content);
        EXPECT_EQ(readFile(file, limit), content) << content.size();
    }
}

TEST_F(ReadFileTest, RejectsAFileAboveTheLimit) {
    writeContent(file, std::string(limit + 1, 'x'));
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

// The file is sparse: it takes no disk space, but reading it would need eight terabytes of memory.
TEST_F(ReadFileTest, RejectsASparseFileOfManyTerabytes) {
    writeContent(file, "");
    std::filesystem::resize_file(file, 8ULL << 40);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

TEST_F(ReadFileTest, FollowsLinks) {
    writeContent(folder.path() / "real", "content");
    std::filesystem::create_symlink("real", file);
    EXPECT_EQ(readFile(file, limit), "content");
}

TEST_F(ReadFileTest, RejectsAMissingFile) {
    EXPECT_EQ(readFile(file, limit), std::nullopt);
    EXPECT_EQ(readFile(folder.path() / "no" / "file", limit), std::nullopt);
    std::filesystem::create_symlink("nowhere", file);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

TEST_F(ReadFileTest, RejectsALinkToItself) {
    std::filesystem::create_symlink("file", file);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

TEST_F(ReadFileTest, RejectsAFolder) {
    std::filesystem::create_directory(file);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

TEST_F(ReadFileTest, RejectsAPipeWithoutWaitingForAWriter) {
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
}

TEST_F(ReadFileTest, RejectsAnEndlessDevice) {
    EXPECT_EQ(readFile("/dev/zero", limit), std::nullopt);
}

TEST_F(ReadFileTest, RejectsASocket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(file.string().size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, file.c_str());
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(readFile(file, limit), std::nullopt);
    close(listener);
}

} // namespace
} // namespace glidemap
