#include "cocoa_test.h"
#include "platform/macos/workspace/macos_workspace.h"

#include <memory>

namespace glidemap {
namespace {

using test::Policy;
using testing::ElementsAre;
using testing::IsEmpty;

class MacosWorkspaceTest : public CocoaTest {
protected:
    const std::unique_ptr<MacosWorkspace> workspace = [] {
        auto made = std::make_unique<MacosWorkspace>();
        journal();
        return made;
    }();
};

constexpr const char* notUTF8 = "com.example.\xff";
constexpr const char* noURL = "https://["; // the bracketed address is not closed

TEST_F(MacosWorkspaceTest, ListsDockApplicationsInSystemOrder) {
    test::workspace().running = {
        {"com.example.notes", "Notes"},
        {"com.example.agent", "Agent", Policy::accessory},
        {"com.example.daemon", "Daemon", Policy::prohibited},
        {"com.example.draw", "画图"},
        {"com.example.notes", "Notes"},
    };
    EXPECT_THAT(workspace->runningApplications(),
                ElementsAre(Application{"com.example.notes", "Notes"},
                            Application{"com.example.draw", "画图"},
                            Application{"com.example.notes", "Notes"}));
    EXPECT_THAT(journal(), ElementsAre("runningApplications"));
}

TEST_F(MacosWorkspaceTest, ListsOnlyApplicationsWithAnIdentifierAndAName) {
    test::workspace().running = {
        {std::nullopt, "Script"},
        {"com.example.nameless", std::nullopt},
        {std::nullopt, std::nullopt},
        {"com.example.whole", "Whole"},
    };
    EXPECT_THAT(workspace->runningApplications(),
                ElementsAre(Application{"com.example.whole", "Whole"}));
}

TEST_F(MacosWorkspaceTest, FindsAnApplicationByItsIdentifier) {
    test::workspace().installed["com.example.notes"] = "file:///Applications/My%20Notes.app/";
    EXPECT_EQ(workspace->urlForApplication("com.example.notes"),
              "file:///Applications/My%20Notes.app/");
    EXPECT_EQ(workspace->urlForApplication("com.example.gone"), std::nullopt);
    EXPECT_THAT(journal(), ElementsAre("URLForApplicationWithBundleIdentifier com.example.notes",
                                       "URLForApplicationWithBundleIdentifier com.example.gone"));
}

TEST_F(MacosWorkspaceTest, NeitherLooksUpNorOpensTextThatIsNotUTF8) {
    EXPECT_EQ(workspace->urlForApplication(notUTF8), std::nullopt);
    workspace->openApplication(notUTF8);
    workspace->openURL(notUTF8);
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(MacosWorkspaceTest, OpensAnApplicationWithTheDefaultConfiguration) {
    workspace->openApplication("file:///Applications/My%20Notes.app/");
    EXPECT_THAT(journal(), ElementsAre("openApplicationAtURL file:///Applications/My%20Notes.app/ "
                                       "configuration no handler"));
}

TEST_F(MacosWorkspaceTest, OpensMissionControlByItsPath) {
    workspace->openMissionControl();
    EXPECT_THAT(
        journal(),
        ElementsAre("openApplicationAtURL file:///System/Applications/Mission%20Control.app/ "
                    "configuration no handler"));
}

TEST_F(MacosWorkspaceTest, OpensAURL) {
    workspace->openURL("https://example.org/");
    EXPECT_THAT(journal(), ElementsAre("openURL https://example.org/"));
}

TEST_F(MacosWorkspaceTest, OpensTheAccessibilityPrivacySettings) {
    workspace->openAccessibilitySettings();
    EXPECT_THAT(journal(), ElementsAre("openURL x-apple.systempreferences:com.apple.preference."
                                       "security?Privacy_Accessibility"));
}

TEST_F(MacosWorkspaceTest, DoesNotOpenAnInvalidURL) {
    workspace->openApplication(noURL);
    workspace->openURL(noURL);
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(MacosWorkspaceTest, ReturnsTheFrontmostApplication) {
    test::activate(test::RunningApplication{"com.example.notes", "Notes"});
    EXPECT_EQ(workspace->frontmostApplication(), (Application{"com.example.notes", "Notes"}));
}

class MissingWorkspaceTest : public CocoaTest {
protected:
    MissingWorkspaceTest() { test::workspace().exists = false; }
};

TEST_F(MissingWorkspaceTest, ReturnsEmptyResultsAndOpensNothing) {
    MacosWorkspace workspace;
    EXPECT_EQ(workspace.frontmostApplication(), Application());
    EXPECT_THAT(workspace.runningApplications(), IsEmpty());
    EXPECT_EQ(workspace.urlForApplication("com.example.notes"), std::nullopt);
    workspace.openApplication("file:///Applications/Notes.app/");
    workspace.openMissionControl();
    workspace.openURL("https://example.invalid/");
    EXPECT_THAT(journal(), IsEmpty());
}

} // namespace
} // namespace glidemap
