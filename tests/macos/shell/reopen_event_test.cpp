#include "doubles/apple_events.h"
#include "doubles/foundation_objects.h"
#include "macos_test.h"
#include "platform/macos/shell/reopen_event.h"

#include <memory>

namespace glidemap {
namespace {

using doubles::livingInstances;
using doubles::sendReopen;
using testing::ElementsAre;

class ReopenEventTest : public MacosTest {
protected:
    ReopenEventTest() {
        event = std::make_unique<ReopenEvent>([this] { ++reopened; });
    }

    ~ReopenEventTest() override {
        event.reset();
        EXPECT_FALSE(sendReopen());
        EXPECT_EQ(livingInstances("GlidemapReopenTarget"), 0U) << "not released";
    }

    std::unique_ptr<ReopenEvent> event;
    int reopened = 0;
};

TEST_F(ReopenEventTest, HandlesTheCoreReopenEvent) {
    EXPECT_THAT(journal(), ElementsAre("setEventHandler aevt rapp"));
    event.reset();
    EXPECT_THAT(journal(), ElementsAre("removeEventHandler aevt rapp"));
}

TEST_F(ReopenEventTest, ReportsEachEvent) {
    EXPECT_TRUE(sendReopen());
    EXPECT_TRUE(sendReopen());
    EXPECT_EQ(reopened, 2);
}

TEST_F(ReopenEventTest, ReportsNothingAfterDestruction) {
    event.reset();
    EXPECT_FALSE(sendReopen());
    EXPECT_EQ(reopened, 0);
}

TEST_F(ReopenEventTest, CallbackMayDestroyIt) {
    event.reset();
    const auto captured = std::make_shared<int>();
    event = std::make_unique<ReopenEvent>([this, captured] {
        event.reset();
        ++*captured; // still valid
    });
    EXPECT_TRUE(sendReopen());
    EXPECT_EQ(*captured, 1);
    EXPECT_EQ(captured.use_count(), 1);
}

} // namespace
} // namespace glidemap
