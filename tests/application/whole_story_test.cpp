// Tests a new user's first actions with the program, by keyboard, mouse and touchpad.
#include "application_test_base.h"
#include "chinese_only.h"

#include <nlohmann/json.hpp>

#include <csignal>

namespace glidemap::test {
namespace {

using nlohmann::json;

// The accessible names of a row's controls contain these names of the gesture.
constexpr const char* newRow = "Three-Finger Swipe Up";
constexpr const char* newRowInChinese = "三指上滑";

class EndToEndTest : public ApplicationTest {
protected:
    void launch() {
        glidemap = std::make_unique<RunningGlidemap>(*stage);
        ASSERT_TRUE(glidemap->waitForWindow());
    }

    // Returns the file's content without the identifiers, which are random.
    json savedBindings() const {
        json bindings = json::parse(contentOf(stage->bindingsFile()), nullptr, false);
        for (json& binding : bindings) {
            EXPECT_EQ(binding.value("id", "").size(), 36U) << binding;
            binding.erase("id");
        }
        return bindings;
    }

    bool waitForLastSaved(const json& binding) const {
        return waitUntil([&] {
            const json all = savedBindings();
            return !all.empty() && all.back() == binding;
        });
    }

    std::string settings() const { return contentOf(stage->settingsFile()); }

    void drawACircle() {
        glidemap->waitForFooter("Try drawing a circle on the trackpad…");
        stage->fingers.make(GestureType::drawCircleClockwise);
        glidemap->waitForFooter("Last gesture: Draw Circle (clockwise) → Lock Screen @ Glidemap");
    }

    void addABinding() {
        stage->hands.press("Ctrl+N");
        glidemap->waitFor("label", "Add Binding");
        ASSERT_TRUE(glidemap->waitForFocusOn("Trackpad gesture")) << glidemap->described();
        stage->hands.type("three-finger swipe up");
        ASSERT_TRUE(glidemap->waitForFocusOn("Search gestures")) << glidemap->described();
        stage->hands.press("Return");
        glidemap->waitFor("combo box", "Three-Finger Swipe Up");
        EXPECT_FALSE(glidemap->waitFor("push button", "Add").isEnabled());
        record("Ctrl+Shift+K", "Ctrl Shift K"); // the name as a screen reader reads it
        EXPECT_TRUE(waitUntil([&] { return glidemap->waitFor("push button", "Add").isEnabled(); }));
        stage->hands.press("Return");
        EXPECT_TRUE(glidemap->waitUntilGone("push button", "Add"));
        glidemap->waitFor("push button", std::string("Edit ") + newRow);
        EXPECT_TRUE(waitForLastSaved({{"action",
                                       {{"kind", "keyboardShortcut"},
                                        {"shortcut", {{"keyCode", 40}, {"modifiers", 0x60000}}}}},
                                      {"enabled", true},
                                      {"gesture", "threeFingerSwipeUp"},
                                      {"scope", {{"kind", "global"}}}}))
            << savedBindings();
    }

    void record(const std::string& keys, const std::string& shown) {
        glidemap->click("push button", "Click to record");
        glidemap->waitFor("push button", "Press a shortcut… (⎋ to cancel)");
        stage->hands.press(keys);
        glidemap->waitFor("push button", shown);
    }

    void useTheNewBinding() {
        stage->fingers.make(GestureType::threeFingerSwipeUp);
        glidemap->waitForFooter("Last gesture: Three-Finger Swipe Up → Shortcut ⌃⇧K @ Glidemap");
    }

    void editIt() {
        glidemap->click("push button", std::string("Edit ") + newRow);
        glidemap->waitFor("label", "Edit Binding");
        chooseWithKeys("Perform action", "Lock Screen");
        glidemap->click("push button", "Save");
        EXPECT_TRUE(glidemap->waitUntilGone("push button", "Save"));
        EXPECT_TRUE(waitForLastSaved({{"action", {{"kind", "lockScreen"}}},
                                      {"enabled", true},
                                      {"gesture", "threeFingerSwipeUp"},
                                      {"scope", {{"kind", "global"}}}}))
            << savedBindings();
    }

    // Selects the next entry of a picker without opening it.
    void chooseWithKeys(const std::string& picker, const std::string& next) {
        for (int step = 0; step < 30 && !glidemap->hasFocus(picker); ++step) {
            tab();
        }
        stage->hands.press("Down");
        glidemap->waitFor("combo box", next);
    }

    void tab() {
        const auto before = glidemap->focused();
        stage->hands.press("Tab");
        EXPECT_TRUE(waitUntil([&] {
            const auto now = glidemap->focused();
            return now && (!before || now->path != before->path);
        }));
    }

    void switchToChinese() {
        // The footer keeps the language that was current when the action ran.
        const std::vector<std::string> said = {"label: → Shortcut ⌃⇧K"};
        chooseWithKeys("Language", "中文");
        glidemap->waitFor("push button", "添加绑定");
        EXPECT_EQ(notInChinese(glidemap->controls()), said);
        EXPECT_TRUE(
            waitUntil([&] { return settings().find("appLanguage=zh") != std::string::npos; }));
        stage->hands.press("Ctrl+N");
        glidemap->waitFor("push button", "取消");
        EXPECT_EQ(notInChinese(glidemap->controls()), said);
        stage->hands.press("Escape");
        EXPECT_TRUE(glidemap->waitUntilGone("push button", "取消"));
    }

    void switchItOff() {
        glidemap->click("check box", std::string("启用「") + newRowInChinese + "」");
        EXPECT_TRUE(waitForLastSaved({{"action", {{"kind", "lockScreen"}}},
                                      {"enabled", false},
                                      {"gesture", "threeFingerSwipeUp"},
                                      {"scope", {{"kind", "global"}}}}))
            << savedBindings();
        stage->fingers.make(GestureType::threeFingerSwipeUp);
        glidemap->waitForFooter("最近手势：三指上滑 （无匹配绑定） @ Glidemap");
    }

    void switchEverythingOff() {
        glidemap->click("check box", "启用");
        EXPECT_TRUE(waitUntil([&] {
            return settings().find("masterEnabled=false") != std::string::npos;
        })) << settings();
        EXPECT_TRUE(waitUntil([&] { return !glidemap->menu().open().at(0).checked; }));
    }

    void deleteTheFirst() {
        glidemap->click("push button", "删除「单指画圆（任意方向）」");
        EXPECT_TRUE(glidemap->waitUntilGone("push button", "删除「单指画圆（任意方向）」"));
        EXPECT_TRUE(waitUntil([&] { return savedBindings().size() == 3; })) << savedBindings();
    }

    void findItAgain() {
        glidemap->waitFor("push button", "编辑「单指固定 + 右侧点按」");
        glidemap->waitFor("push button", "编辑「单指固定 + 左侧点按」");
        const std::string mine = std::string("启用「") + newRowInChinese + "」";
        EXPECT_FALSE(glidemap->waitFor("check box", mine).isChecked());
        EXPECT_FALSE(glidemap->waitFor("check box", "启用").isChecked());
        EXPECT_FALSE(glidemap->find("push button", "编辑「单指画圆（任意方向）」"));
        const auto entries = glidemap->menu().open();
        ASSERT_FALSE(entries.empty());
        EXPECT_EQ(describe(entries).front(), "· 启用手势");
    }

    std::unique_ptr<ApplicationStage> stage;
    std::unique_ptr<RunningGlidemap> glidemap;
};

TEST_F(EndToEndTest, NewBindingsWorkImmediatelyAndSurviveARestart) {
    stage = std::make_unique<ApplicationStage>();
    launch();
    drawACircle();
    addABinding();
    useTheNewBinding();
    editIt();
    switchToChinese();
    switchItOff();
    switchEverythingOff();
    deleteTheFirst();
    const std::string kept = contentOf(stage->bindingsFile());
    EXPECT_EQ(glidemap->end(SIGTERM), 0);
    launch();
    findItAgain();
    EXPECT_EQ(contentOf(stage->bindingsFile()), kept);
    EXPECT_EQ(glidemap->end(SIGTERM), 0);
}

} // namespace
} // namespace glidemap::test
