#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/in_environment.h"
#include "kit/patience.h"
#include "platform/linux/diagnosis/bus_survey.h"

#include <gtest/gtest.h>

#include <chrono>

namespace glidemap {
namespace {

constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

TEST(BusSurveyTest, ListsRunningAndStartableServices) {
    const test::PrivateBus bus;
    bus.makeStartable("org.glidemap.Startable", "/bin/false");
    const test::InEnvironment address(variable, bus.address().c_str());
    const BusSurvey survey = surveyBus(Bus::session, test::patience);
    EXPECT_EQ(survey.state, BusSurvey::State::answered);
    EXPECT_TRUE(survey.running.contains("org.freedesktop.DBus"));
    EXPECT_FALSE(survey.running.contains("org.glidemap.Startable"));
    EXPECT_TRUE(survey.startable.contains("org.glidemap.Startable"));
}

TEST(BusSurveyTest, TimesOutOnABusThatNeverReplies) {
    const test::SilentSocket silent;
    const test::InEnvironment address(variable, silent.address().c_str());
    const BusSurvey survey = surveyBus(Bus::session, std::chrono::milliseconds(50));
    EXPECT_EQ(survey.state, BusSurvey::State::silent);
    EXPECT_TRUE(survey.running.empty());
}

TEST(BusSurveyTest, ReportsAMissingOrUnreachableBus) {
    const test::InEnvironment folder("XDG_RUNTIME_DIR", nullptr);
    {
        const test::InEnvironment address(variable, nullptr);
        EXPECT_EQ(surveyBus(Bus::session, test::patience).state, BusSurvey::State::absent);
    }
    const test::InEnvironment address(variable, "unix:path=/nonexistent/bus");
    EXPECT_EQ(surveyBus(Bus::session, test::patience).state, BusSurvey::State::refused);
}

} // namespace
} // namespace glidemap
