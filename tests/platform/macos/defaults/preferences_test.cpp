#include "doubles/preferences.h"
#include "macos_test.h"
#include "platform/macos/defaults/preferences.h"

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PreferencesTest : public MacosTest {
protected:
    PreferencesTest() { test::preferences() = {}; }

    std::map<std::string, test::Preference>& stored = test::preferences().stored;
    Preferences preferences;
};

TEST_F(PreferencesTest, ReturnsNulloptForAMissingValue) {
    EXPECT_EQ(preferences.string("appLanguage"), std::nullopt);
    EXPECT_EQ(preferences.boolean("masterEnabled"), std::nullopt);
}

TEST_F(PreferencesTest, ReadsValuesByType) {
    stored = {{"appLanguage", "zh"}, {"masterEnabled", false}, {"other", true}, {"number", 1.0}};
    EXPECT_EQ(preferences.string("appLanguage"), "zh");
    EXPECT_EQ(preferences.boolean("masterEnabled"), false);
    EXPECT_EQ(preferences.boolean("other"), true);
    for (const char* key : {"masterEnabled", "number"}) {
        EXPECT_EQ(preferences.string(key), std::nullopt) << key;
    }
    for (const char* key : {"appLanguage", "number"}) {
        EXPECT_EQ(preferences.boolean(key), std::nullopt) << key;
    }
}

TEST_F(PreferencesTest, ReadsTextOfAnyLengthAndLanguage) {
    for (const std::string& text :
         {std::string(), std::string("简体中文"), std::string(100'000, 'a')}) {
        stored["appLanguage"] = text;
        EXPECT_EQ(preferences.string("appLanguage"), text);
    }
}

TEST_F(PreferencesTest, WritesValuesImmediatelyWithTheirType) {
    preferences.setString("appLanguage", "zh");
    EXPECT_THAT(journal(), ElementsAre("CFPreferencesSetAppValue appLanguage",
                                       "CFPreferencesAppSynchronize this application"));
    preferences.setBoolean("masterEnabled", false);
    preferences.setBoolean("other", true);
    EXPECT_EQ(stored, (std::map<std::string, test::Preference>{
                          {"appLanguage", "zh"}, {"masterEnabled", false}, {"other", true}}));
    EXPECT_EQ(journal().size(), 4U);
}

TEST_F(PreferencesTest, ReadsAndWritesNothingIfStringsCannotBeCreated) {
    stored["appLanguage"] = "zh";
    test::preferences().makesTexts = false;
    EXPECT_EQ(preferences.string("appLanguage"), std::nullopt);
    preferences.setString("appLanguage", "en");
    preferences.setBoolean("masterEnabled", true);
    EXPECT_THAT(journal(), IsEmpty());
}

} // namespace
} // namespace glidemap
