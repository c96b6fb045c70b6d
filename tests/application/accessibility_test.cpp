// Tests that the program is usable without a mouse and with a screen reader.
#include "application_test_base.h"
#include "picture.h"

#include <csignal>
#include <map>
#include <set>

namespace glidemap::test {
namespace {

using Names = std::vector<std::string>;

constexpr int margin = 4; // pixels around a control, for its focus ring
constexpr std::size_t minDifference = 20;
constexpr int maxTabStops = 60;

// These roles do not describe a control's function.
const std::set<std::string> meaninglessRoles = {"",       "invalid", "unknown",
                                                "filler", "panel",   "redundant object"};

std::string spokenName(const Control& control) {
    return control.label.empty() ? control.name : control.label;
}

class AccessibilityTest : public ApplicationTest {
protected:
    void SetUp() override {
        ApplicationTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        stage = std::make_unique<ApplicationStage>();
        glidemap = std::make_unique<RunningGlidemap>(*stage);
        ASSERT_TRUE(glidemap->waitForWindow());
        ASSERT_TRUE(waitUntil([this] { return glidemap->focused().has_value(); }));
        stage->hands.moveTo(1, 1); // away from all controls
    }

    void openEditor() const {
        stage->hands.press("Ctrl+N");
        glidemap->waitFor("push button", "Cancel");
        EXPECT_TRUE(glidemap->waitForFocusOn("Trackpad gesture")) << glidemap->described();
    }

    // Presses Tab and returns the newly focused control.
    std::optional<Control> tab() const {
        const auto before = glidemap->focused();
        stage->hands.press("Tab");
        std::optional<Control> now;
        EXPECT_TRUE(waitUntil([&] {
            now = glidemap->focused();
            return now && (!before || now->path != before->path);
        })) << "the focus stays on "
            << (before ? describe(*before) : "nothing");
        return now;
    }

    // Returns all tab stops, in order, until Tab returns to the first one.
    Controls walk() const {
        Controls stops;
        std::optional<Control> stop = tab();
        while (stop && (stops.empty() || stop->path != stops.front().path)) {
            stops.push_back(*stop);
            if (stops.size() > maxTabStops) {
                ADD_FAILURE() << "Tab never returns to the first control";
                break;
            }
            stop = tab();
        }
        return stops;
    }

    static Names namesOf(const Controls& controls) {
        Names names;
        for (const Control& each : controls) {
            names.push_back(spokenName(each));
        }
        return names;
    }

    void expectEveryControlIsNamed() const {
        for (const Control& each : glidemap->controls()) {
            if (each.isFocusable() || each.depth == 0 || each.role == "push button") {
                EXPECT_EQ(each.isFocusable() ? meaninglessRoles.count(each.role) : 0, 0U)
                    << describe(each);
                EXPECT_NE(spokenName(each), "") << describe(each);
            }
        }
    }

    Picture pictureAround(const Control& control) const {
        Rectangle area = control.area;
        area.x -= margin;
        area.y -= margin;
        area.width += 2 * margin;
        area.height += 2 * margin;
        return Picture(stage->display, area);
    }

    // Checks that each tab stop looks different while it has the keyboard focus.
    void expectFocusIsVisible() const {
        const std::optional<Control> first = tab();
        std::optional<Control> stop = first;
        for (int step = 0; stop && step < maxTabStops; ++step) {
            const Picture focused = pictureAround(*stop);
            const std::optional<Control> next = tab();
            EXPECT_TRUE(waitUntil([&] {
                return pictureAround(*stop).differences(focused) >= minDifference;
            })) << "looks the same with and without the focus: "
                << describe(*stop);
            if (!next || next->path == first->path) {
                return;
            }
            stop = next;
        }
    }

    std::unique_ptr<ApplicationStage> stage;
    std::unique_ptr<RunningGlidemap> glidemap;
};

TEST_F(AccessibilityTest, EveryControlOfTheWindowHasARoleAndAName) {
    expectEveryControlIsNamed();
}

TEST_F(AccessibilityTest, EveryControlOfTheEditorHasARoleAndAName) {
    openEditor();
    expectEveryControlIsNamed();
}

TEST_F(AccessibilityTest, EveryControlOfTheGestureListHasARoleAndAName) {
    openEditor();
    stage->hands.type("circle");
    glidemap->waitFor("text", "Search gestures");
    expectEveryControlIsNamed();
}

TEST_F(AccessibilityTest, EveryControlOfTheDemonstrationHasARoleAndAName) {
    glidemap->click("push button", "Show gesture demo: Hold + Tap Right");
    glidemap->waitFor("animation", "Hold + Tap Right");
    expectEveryControlIsNamed();
}

TEST_F(AccessibilityTest, TabVisitsTheWindowInReadingOrder) {
    ASSERT_TRUE(glidemap->waitForFocusOn("Launch at Login"));
    EXPECT_EQ(namesOf(walk()),
              (Names{"Language", "Enabled", "Add Binding", "Open System Settings",
                     "Draw Circle (any direction), Lock Screen, Global", "Launch at Login"}));
}

TEST_F(AccessibilityTest, TabVisitsTheEditorInReadingOrder) {
    openEditor();
    EXPECT_EQ(namesOf(walk()), (Names{"Perform action", "Shortcut", "Choose the keys from a list",
                                      "Global", "Cancel", "Trackpad gesture"}));
}

TEST_F(AccessibilityTest, FocusIsVisibleInTheWindow) {
    expectFocusIsVisible();
}

TEST_F(AccessibilityTest, FocusIsVisibleInTheEditor) {
    openEditor();
    expectFocusIsVisible();
}

TEST_F(AccessibilityTest, ScreenReaderCanOperateControls) {
    const Control enabled = glidemap->waitFor("check box", "Enabled");
    EXPECT_TRUE(stage->accessibility.act(enabled));
    EXPECT_TRUE(waitUntil([&] { return !glidemap->waitFor("check box", "Enabled").isChecked(); }));
    EXPECT_TRUE(stage->accessibility.act(glidemap->waitFor("push button", "Add Binding")));
    const Control cancel = glidemap->waitFor("push button", "Cancel");
    EXPECT_TRUE(stage->accessibility.act(cancel));
    EXPECT_TRUE(glidemap->waitUntilGone("push button", "Cancel"));
}

TEST_F(AccessibilityTest, NoTwoControlsShareAShortcut) {
    for (const bool inEditor : {false, true}) {
        if (inEditor) {
            openEditor();
        }
        std::map<std::string, std::string> owners;
        for (const Control& each : glidemap->controls()) {
            const std::string keys = stage->accessibility.keysOf(each);
            // A shortcut of a single key works only while its control has the focus.
            if (keys.find('+') != std::string::npos) {
                const auto [owner, isNew] = owners.try_emplace(keys, describe(each));
                EXPECT_TRUE(isNew) << keys << ": " << owner->second << " and " << describe(each);
            }
        }
    }
}

} // namespace
} // namespace glidemap::test
