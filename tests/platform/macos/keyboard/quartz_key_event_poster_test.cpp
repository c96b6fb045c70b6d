#include "macos_test.h"
#include "platform/macos/keyboard/quartz_key_event_poster.h"

#include <array>

namespace glidemap {
namespace {

using testing::ElementsAre;

constexpr std::array lockShortcut{KeyEvent{12, true, 0x140000}, KeyEvent{12, false, 0x140000}};

class QuartzKeyEventPosterTest : public MacosTest {
protected:
    QuartzKeyEventPoster poster;
};

TEST_F(QuartzKeyEventPosterTest, PostsPressAndReleaseWithExactlyTheGivenFlags) {
    poster.post(lockShortcut);
    EXPECT_THAT(journal(), ElementsAre("CGEventSourceCreate 1",                     //
                                       "CGEventCreateKeyboardEvent source 12 down", //
                                       "CGEventCreateKeyboardEvent source 12 up",   //
                                       "CGEventSetFlags key 12 down 0x140000",      //
                                       "CGEventSetFlags key 12 up 0x140000",        //
                                       "CGEventPost 0 key 12 down",                 //
                                       "CGEventPost 0 key 12 up"));
}

TEST_F(QuartzKeyEventPosterTest, PostsNothingWithoutASource) {
    test::quartz().makesEventSources = false;
    poster.post(lockShortcut);
    EXPECT_THAT(journal(), ElementsAre("CGEventSourceCreate 1"));
}

TEST_F(QuartzKeyEventPosterTest, PostsNothingIfEitherEventIsMissing) {
    for (const int made : {0, 1}) {
        test::quartz().eventsThatCanBeMade = made;
        poster.post(lockShortcut);
        EXPECT_THAT(journal(), ElementsAre("CGEventSourceCreate 1",
                                           "CGEventCreateKeyboardEvent source 12 down",
                                           "CGEventCreateKeyboardEvent source 12 up"));
    }
}

} // namespace
} // namespace glidemap
