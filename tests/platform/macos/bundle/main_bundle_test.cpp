#include "bundle/files_test.h"
#include "platform/macos/bundle/main_bundle.h"

#include <thread>

namespace glidemap {
namespace {

using test::files;
using Information = test::Files::Information;

class MainBundleTest : public FilesTest {};

TEST_F(MainBundleTest, ReturnsTheShortVersion) {
    files().version = "1.10.2";
    EXPECT_EQ(bundleShortVersion(), "1.10.2");
}

TEST_F(MainBundleTest, ReturnsTheVersionWithoutAnOuterAutoreleasePool) {
    files().version = "1.10.2";
    std::thread([] { EXPECT_EQ(bundleShortVersion(), "1.10.2"); }).join();
}

TEST_F(MainBundleTest, ReturnsNulloptWithoutAVersion) {
    for (const Information information :
         {Information::none, Information::empty, Information::manifestWithoutTextVersion}) {
        files().information = information;
        EXPECT_EQ(bundleShortVersion(), std::nullopt);
    }
}

// The program calls the function before it has an application object and a loop with a pool.
TEST_F(MainBundleTest, ReturnsTheProgramPathWithoutAnOuterAutoreleasePool) {
    files().program = "/Applications/Glidemap.app/Contents/MacOS/Glidemap";
    std::thread([] {
        EXPECT_EQ(programPath(), "/Applications/Glidemap.app/Contents/MacOS/Glidemap");
    }).join();
    files().program.reset();
    EXPECT_EQ(programPath(), std::nullopt);
}

} // namespace
} // namespace glidemap
