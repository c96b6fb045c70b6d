#include "macos_test.h"
#include "platform/macos/thread_setup.h"

namespace glidemap {
namespace {

using testing::ElementsAre;

class ThreadSetupTest : public MacosTest {};

TEST_F(ThreadSetupTest, NamesTheThread) {
    nameThread("com.corvane.glidemap.delayed");
    EXPECT_THAT(journal(), ElementsAre("pthread_setname_np com.corvane.glidemap.delayed"));
}

TEST_F(ThreadSetupTest, ResponsiveThreadHasUserInteractiveQualityOfService) {
    setUpResponsiveThread("com.corvane.glidemap.touch");
    EXPECT_THAT(journal(), ElementsAre("pthread_setname_np com.corvane.glidemap.touch",
                                       "pthread_set_qos_class_self_np 0x21 0"));
}

} // namespace
} // namespace glidemap
