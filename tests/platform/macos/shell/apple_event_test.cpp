#include "doubles/apple_events.h"
#include "doubles/foundation_objects.h"
#include "macos_test.h"
#include "platform/macos/shell/apple_event.h"

#include <memory>

namespace glidemap {
namespace {

using test::livingInstances;
using test::sendQuit;
using test::sendReopen;
using testing::ElementsAre;
using Kind = AppleEvent::Kind;

class AppleEventTest : public MacosTest {
protected:
    AppleEventTest() {
        reopen = std::make_unique<AppleEvent>(Kind::reopen, [this] { ++reopened; });
    }

    ~AppleEventTest() override {
        reopen.reset();
        EXPECT_FALSE(sendReopen());
        EXPECT_FALSE(sendQuit());
        EXPECT_EQ(livingInstances("GlidemapEventTarget"), 0U) << "not released";
    }

    std::unique_ptr<AppleEvent> reopen;
    int reopened = 0;
};

TEST_F(AppleEventTest, InstallsAHandlerForTheReopenEvent) {
    EXPECT_THAT(journal(), ElementsAre("setEventHandler aevt rapp"));
    reopen.reset();
    EXPECT_THAT(journal(), ElementsAre("removeEventHandler aevt rapp"));
}

TEST_F(AppleEventTest, InstallsAHandlerForTheQuitEvent) {
    journal();
    {
        const AppleEvent quit(Kind::quit, [] {});
    }
    EXPECT_THAT(journal(),
                ElementsAre("setEventHandler aevt quit", "removeEventHandler aevt quit"));
}

TEST_F(AppleEventTest, ReportsEachEvent) {
    EXPECT_TRUE(sendReopen());
    EXPECT_TRUE(sendReopen());
    EXPECT_EQ(reopened, 2);
}

TEST_F(AppleEventTest, ReportsOnlyTheRegisteredKindOfEvent) {
    int ended = 0;
    const AppleEvent quit(Kind::quit, [&ended] { ++ended; });
    EXPECT_TRUE(sendQuit());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(reopened, 0);
}

TEST_F(AppleEventTest, ReportsNothingAfterDestruction) {
    reopen.reset();
    EXPECT_FALSE(sendReopen());
    EXPECT_EQ(reopened, 0);
}

TEST_F(AppleEventTest, CallbackMayDestroyTheHandler) {
    reopen.reset();
    const auto captured = std::make_shared<int>();
    reopen = std::make_unique<AppleEvent>(Kind::reopen, [this, captured] {
        reopen.reset();
        ++*captured; // the capture is still valid
    });
    EXPECT_TRUE(sendReopen());
    EXPECT_EQ(*captured, 1);
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace glidemap
