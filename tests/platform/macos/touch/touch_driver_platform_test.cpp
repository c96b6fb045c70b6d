#include "input/multitouch_device_manager.h"
#include "macos_test.h"
#include "platform/macos/touch/touch_driver_platform.h"

#include <optional>

namespace {

std::optional<std::vector<const void*>> trackpads;

} // namespace

// Returns the fake framework's device list, an array that the caller owns, or null.
extern "C" __attribute__((visibility("default"))) const void* trackpadList();
const void* trackpadList() {
    return trackpads ? glidemap::test::handOutArray(*trackpads) : nullptr;
}

namespace glidemap {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;
using testing::StartsWith;

constexpr const char* complete = FRAMEWORKS "/libmultitouch.so";
constexpr const char* noDevice = "未找到多点触摸设备";

int first = 0;
int second = 0;

class TouchDriverPlatformTest : public MacosTest {
protected:
    TouchDriverPlatformTest() { trackpads = {&first, nullptr, &second}; }

    ~TouchDriverPlatformTest() override {
        // The manager keeps its list until the program exits.
        test::releaseAll("CFArray");
    }

    static TouchDriverPlatform platformAt(const char* library) {
        TouchDriverPlatform platform = touchDriverPlatform();
        platform.libraryPath = library;
        return platform;
    }
};

TEST_F(TouchDriverPlatformTest, UsesTheSystemPrivateFramework) {
    EXPECT_EQ(touchDriverPlatform().libraryPath,
              "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport");
}

TEST_F(TouchDriverPlatformTest, StartsEveryDeviceInTheArrayInOrder) {
    MultitouchDeviceManager manager(platformAt(complete));
    manager.start();
    EXPECT_THAT(manager.presentDevices(), ElementsAre(&first, &second));
    EXPECT_THAT(journal(), ElementsAre("MTDeviceCreateList",                                //
                                       "MTRegisterContactFrameCallback", "MTDeviceStart 0", //
                                       "MTRegisterContactFrameCallback", "MTDeviceStart 0"));
    EXPECT_EQ(manager.loadError(), std::nullopt);
    manager.stop();
    EXPECT_THAT(journal(), ElementsAre("MTDeviceStop", "MTUnregisterContactFrameCallback",
                                       "MTDeviceStop", "MTUnregisterContactFrameCallback"));
}

TEST_F(TouchDriverPlatformTest, KeepsTheDeviceArrayUntilTheProgramExits) {
    {
        MultitouchDeviceManager manager(platformAt(complete));
        manager.start();
        manager.stop();
    }
    EXPECT_THAT(test::livingObjects(), ElementsAre("CFArray"));
}

TEST_F(TouchDriverPlatformTest, FindsNoDeviceWithoutADeviceArray) {
    trackpads.reset();
    MultitouchDeviceManager manager(platformAt(complete));
    manager.start();
    EXPECT_THAT(manager.loadError(), Optional(std::string(noDevice)));
    EXPECT_FALSE(manager.isRunning());
}

TEST_F(TouchDriverPlatformTest, FindsNoDeviceInAnArrayOfNulls) {
    trackpads = {nullptr, nullptr};
    MultitouchDeviceManager manager(platformAt(complete));
    manager.start();
    EXPECT_THAT(manager.loadError(), Optional(std::string(noDevice)));
    EXPECT_THAT(journal(), ElementsAre("MTDeviceCreateList"));
}

TEST_F(TouchDriverPlatformTest, StopWorksWithoutTheOptionalStopFunctions) {
    MultitouchDeviceManager manager(platformAt(FRAMEWORKS "/libmultitouch-without-stop-side.so"));
    manager.start();
    journal();
    manager.stop();
    EXPECT_THAT(journal(), IsEmpty());
    EXPECT_FALSE(manager.isRunning());
}

TEST_F(TouchDriverPlatformTest, DoesNothingWithoutARequiredFunction) {
    MultitouchDeviceManager manager(platformAt(FRAMEWORKS "/libmultitouch-without-start.so"));
    EXPECT_THAT(manager.loadError(), Optional(std::string("MultitouchSupport 符号解析失败")));
    manager.start();
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(TouchDriverPlatformTest, ReportsWhyTheFrameworkCannotBeLoaded) {
    MultitouchDeviceManager manager(platformAt("/nowhere/MultitouchSupport"));
    EXPECT_THAT(manager.loadError(),
                Optional(AllOf(StartsWith("无法加载 MultitouchSupport.framework: "),
                               HasSubstr("/nowhere/MultitouchSupport"))));
    manager.start();
    EXPECT_THAT(journal(), IsEmpty());
}

} // namespace
} // namespace glidemap
