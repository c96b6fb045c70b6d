#include "cocoa_test.h"
#include "platform/macos/session/user_activity.h"

#include <optional>
#include <thread>

namespace glidemap {
namespace {

using testing::ElementsAre;

class UserActivityTest : public CocoaTest {};

TEST_F(UserActivityTest, IsUserInitiatedAndAllowsSleep) {
    std::optional<UserActivity> activity("gestures are on");
    EXPECT_THAT(journal(), ElementsAre("beginActivity 0xefffff gestures are on"));
    activity.reset();
    EXPECT_THAT(journal(), ElementsAre("endActivity"));
}

TEST_F(UserActivityTest, WorksWithoutAnOuterAutoreleasePool) {
    std::thread([] { const UserActivity activity("gestures are on"); }).join();
    EXPECT_THAT(journal(), ElementsAre("beginActivity 0xefffff gestures are on", "endActivity"));
}

} // namespace
} // namespace glidemap
