#include "bundle/files_test.h"
#include "platform/macos/bundle/application_support.h"

#include <thread>

namespace glidemap {
namespace {

using test::files;
using testing::ElementsAre;

class ApplicationSupportTest : public FilesTest {};

TEST_F(ApplicationSupportTest, ReturnsTheFirstFolderInTheUserDomain) {
    files().applicationSupport = {"/Users/mü/Library/Application Support", "/elsewhere"};
    EXPECT_EQ(applicationSupportFolder(), "/Users/mü/Library/Application Support");
    EXPECT_THAT(journal(), ElementsAre("URLsForDirectory 14 1"));
}

TEST_F(ApplicationSupportTest, ReturnsNulloptWithoutAFolder) {
    EXPECT_EQ(applicationSupportFolder(), std::nullopt);
}

// The program calls the function before the main loop, which provides an autorelease pool.
TEST_F(ApplicationSupportTest, WorksWithoutAnOuterAutoreleasePool) {
    files().applicationSupport = {"/Users/me/Library/Application Support"};
    std::thread([] {
        EXPECT_EQ(applicationSupportFolder(), "/Users/me/Library/Application Support");
    }).join();
}

} // namespace
} // namespace glidemap
