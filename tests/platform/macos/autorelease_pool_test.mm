#include "cocoa_test.h"
#include "platform/common/threaded_serial_queue.h"
#include "platform/macos/autorelease_pool.h"

#import <Foundation/Foundation.h>

#include <future>
#include <thread>

namespace glidemap {
namespace {

class AutoreleasePoolTest : public CocoaTest {
protected:
    // The fake fails the test if no pool surrounds the call.
    static void leaveAnObjectBehind() { [[[NSObject alloc] init] autorelease]; }

    static std::size_t left() { return test::livingInstances("NSObject"); }
};

TEST_F(AutoreleasePoolTest, KeepsAutoreleasedObjectsUntilTheWrappedFunctionReturns) {
    std::thread([] {
        withinAutoreleasePool([] {
            leaveAnObjectBehind();
            EXPECT_EQ(left(), 1U);
        });
        EXPECT_EQ(left(), 0U);
    }).join();
}

TEST_F(AutoreleasePoolTest, IsEmptyBetweenTheTasksOfAQueue) {
    ThreadedSerialQueue queue({}, withinAutoreleasePool);
    std::promise<std::size_t> found;
    queue.submit([] { leaveAnObjectBehind(); });
    queue.submit([&found] { found.set_value(left()); });
    EXPECT_EQ(found.get_future().get(), 0U);
}

} // namespace
} // namespace glidemap
