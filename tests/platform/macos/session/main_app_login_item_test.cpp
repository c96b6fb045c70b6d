#include "cocoa_test.h"
#include "platform/macos/session/main_app_login_item.h"

namespace glidemap {
namespace {

using test::mainAppService;
using testing::ElementsAre;

using Status = LoginItemService::Status;

class MainAppLoginItemTest : public CocoaTest {
protected:
    MainAppLoginItem item;
};

TEST_F(MainAppLoginItemTest, ReturnsTheServiceStatus) {
    struct Row {
        long status;
        Status reported;
    };
    const Row rows[] = {
        {0, Status::notRegistered},
        {1, Status::enabled},
        {2, Status::requiresApproval},
        {3, Status::notFound},
    };
    for (const Row& row : rows) {
        mainAppService().status = row.status;
        EXPECT_EQ(item.status(), row.reported) << row.status;
        EXPECT_THAT(journal(), ElementsAre("mainAppService", "status"));
    }
}

TEST_F(MainAppLoginItemTest, UnknownStatusCountsAsNotRegistered) {
    for (const long status : {-1L, 4L, 257L}) {
        mainAppService().status = status;
        EXPECT_EQ(item.status(), Status::notRegistered) << status;
    }
}

TEST_F(MainAppLoginItemTest, RegistersTheProgram) {
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_THAT(journal(), ElementsAre("mainAppService", "registerAndReturnError"));
}

TEST_F(MainAppLoginItemTest, UnregistersTheProgram) {
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
    EXPECT_THAT(journal(), ElementsAre("mainAppService", "unregisterAndReturnError"));
}

TEST_F(MainAppLoginItemTest, RefusalReturnsTheSystemErrorText) {
    mainAppService() = {.refuses = true, .reason = "操作未被允许"};
    EXPECT_EQ(item.registerItem(), "操作未被允许");
    EXPECT_EQ(item.unregisterItem(), "操作未被允许");
}

TEST_F(MainAppLoginItemTest, RefusalWithoutATextReturnsAnEmptyText) {
    mainAppService() = {.refuses = true, .reason = std::nullopt};
    EXPECT_EQ(item.registerItem(), "");
    EXPECT_EQ(item.unregisterItem(), "");
}

TEST_F(MainAppLoginItemTest, IgnoresTheErrorObjectOnSuccess) {
    mainAppService() = {.refuses = false, .reason = "left over"};
    EXPECT_EQ(item.registerItem(), std::nullopt);
    EXPECT_EQ(item.unregisterItem(), std::nullopt);
}

} // namespace
} // namespace glidemap
