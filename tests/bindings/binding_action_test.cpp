#include "bindings/binding_action.h"
#include "bindings/binding_json.h"
#include "kit/in_language.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap {
namespace {

struct Row {
    BindingAction action;
    const char* english;
    const char* chinese;
};

const Row rows[] = {
    {KeyShortcut{124, modifier::option | modifier::command}, "Shortcut ⌥⌘→", "快捷键 ⌥⌘→"},
    {KeyShortcut{10, 0}, "Shortcut Key 10", "快捷键 Key 10"},
    {LockScreen{}, "Lock Screen", "锁定屏幕"},
    {MissionControl{}, "Mission Control", "Mission Control"},
    {LaunchApp{"org.example.Notes", "Notes"}, "Open Notes", "打开 Notes"},
    {LaunchApp{"org.example.Notes", "备忘录"}, "Open 备忘录", "打开 备忘录"},
    {LaunchApp{"org.example.Notes", ""}, "Open ", "打开 "},
};

TEST(BindingActionTest, IsShownInTheCurrentLanguage) {
    Lang lang(nullptr);
    for (const Row& row : rows) {
        lang.setCode("en");
        EXPECT_EQ(displayString(row.action, lang), row.english);
        lang.setCode("zh");
        EXPECT_EQ(displayString(row.action, lang), row.chinese);
        lang.setCode("fr");
        EXPECT_EQ(displayString(row.action, lang), row.english) << "any other code is English";
    }
}

TEST(BindingActionTest, IsShownInTheProgramLanguageByDefault) {
    EXPECT_EQ(displayString(BindingAction(LockScreen{})), "Lock Screen");
    const test::InLanguage chinese("zh");
    EXPECT_EQ(displayString(BindingAction(LockScreen{})), "锁定屏幕");
    EXPECT_EQ(displayString(BindingAction(MissionControl{})), "Mission Control");
}

TEST(BindingActionTest, EqualityComparesKindAndPayload) {
    const std::vector<BindingAction> different = {
        KeyShortcut{1, 2},   KeyShortcut{2, 1},  LockScreen{},       MissionControl{},
        LaunchApp{"a", "b"}, LaunchApp{"a", ""}, LaunchApp{"", "b"}, LaunchApp{"b", "a"},
    };
    for (std::size_t one = 0; one < different.size(); ++one) {
        for (std::size_t other = 0; other < different.size(); ++other) {
            EXPECT_EQ(different[one] == different[other], one == other) << one << ", " << other;
        }
    }
}

TEST(BindingActionTest, KindNamesMatchTheFileFormat) {
    for (const Row& row : rows) {
        GestureBinding binding;
        binding.action = row.action;
        const std::string file = encodeBindings({binding});
        EXPECT_NE(file.find("\"kind\": \"" + std::string(kindOf(row.action)) + '"'),
                  std::string::npos)
            << file;
    }
}

} // namespace
} // namespace glidemap
