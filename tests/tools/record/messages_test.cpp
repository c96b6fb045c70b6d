#include "messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glidemap::record {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(Messages, DoesNotSuggestGrantingPermissionIfNoTouchpadExists) {
    EXPECT_THAT(nothingToRecord(0),
                AllOf(StartsWith("no touchpad found\n"), Not(HasSubstr("sudo"))));
}

TEST(Messages, ExplainsHowToGrantMissingPermission) {
    EXPECT_THAT(nothingToRecord(1), AllOf(StartsWith("there is a touchpad, but"),
                                          HasSubstr("uaccess"), HasSubstr("setfacl")));
    EXPECT_THAT(nothingToRecord(2), StartsWith("there are 2 touchpads, but"));
}

TEST(Messages, MentionsTheInputGroupOnlyAsAWarning) {
    EXPECT_THAT(nothingToRecord(1), AllOf(HasSubstr("Do not join the group \"input\""),
                                          HasSubstr("read every keyboard")));
    EXPECT_THAT(nothingToRecord(1), Not(HasSubstr("usermod")));
}

} // namespace
} // namespace glidemap::record
