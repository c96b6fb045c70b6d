#include "kit/fake_workspace.h"
#include "kit/qt_waiting.h"
#include "kit/temporary_folder.h"
#include "ui/editor/application_picker.h"
#include "ui/editor/running_apps.h"

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QListView>
#include <QPixmap>
#include <QTest>
#include <string>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const RunningApp files{.bundleID = "files", .name = "Files"};
const RunningApp mail{.bundleID = "mail", .name = "Mail"};
const RunningApp gone{.bundleID = "gone", .name = "Gone"};

class ApplicationPickerTest : public testing::Test {
protected:
    ApplicationPickerTest() {
        workspace.running = {{"mail", "Mail"}, {"files", "Files"}};
        picker.onPick = [this](const std::optional<RunningApp>& app) {
            picked.push_back(app ? app->name : "none");
        };
        picker.show();
        EXPECT_TRUE(test::waitForWindowActive(&picker));
    }

    // Returns the visible entries.
    std::vector<std::string> entries() {
        std::vector<std::string> texts;
        const auto& list = dynamic_cast<const QListView&>(*picker.view());
        for (int row = 0; row < picker.count(); ++row) {
            if (!list.isRowHidden(row)) {
                texts.push_back(picker.itemText(row).toStdString());
            }
        }
        return texts;
    }

    std::string current() const { return picker.currentText().toStdString(); }

    test::FakeWorkspace workspace;
    Lang lang{nullptr};
    ApplicationPicker picker{workspace, runningApps, lang};
    std::vector<std::string> picked;
};

TEST_F(ApplicationPickerTest, FirstEntryMeansNoApplication) {
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Files", "Mail"));
    EXPECT_EQ(current(), "Choose an app");
}

TEST_F(ApplicationPickerTest, EntriesHaveIconsAndAlignedNames) {
    const test::TemporaryFolder folder;
    QPixmap red(64, 64);
    red.fill(Qt::red);
    const std::string file = folder.path() / "mail.png";
    ASSERT_TRUE(red.save(QString::fromStdString(file)));
    workspace.icons = {{"mail", file}, {"files", "no-theme-has-an-icon-of-this-name"}};
    picker.reload();
    const QImage mailIcon = picker.itemIcon(2).pixmap(picker.iconSize()).toImage();
    ASSERT_FALSE(mailIcon.isNull());
    EXPECT_EQ(mailIcon.pixelColor(5, 5), QColor(Qt::red));
    const QImage filesIcon = picker.itemIcon(1).pixmap(picker.iconSize()).toImage();
    ASSERT_FALSE(filesIcon.isNull()) << "otherwise its name would not be aligned";
    EXPECT_EQ(filesIcon.pixelColor(5, 5).alpha(), 0);
    EXPECT_TRUE(picker.itemIcon(0).isNull());
}

TEST_F(ApplicationPickerTest, EntriesHaveNoIconIfTheWorkspaceProvidesNone) {
    picker.reload();
    EXPECT_TRUE(picker.itemIcon(1).isNull());
    workspace.icons = {{"mail", "/nowhere/mail.png"}};
    picker.reload();
    EXPECT_TRUE(picker.itemIcon(2).isNull());
}

TEST_F(ApplicationPickerTest, PickingCallsOnPickWithTheApplication) {
    picker.setCurrentIndex(2);
    picker.setCurrentIndex(1);
    picker.setCurrentIndex(0);
    EXPECT_THAT(picked, ElementsAre("Mail", "Files", "none"));
}

TEST_F(ApplicationPickerTest, ArrowKeysPickWithoutOpeningTheList) {
    QTest::keyClick(&picker, Qt::Key_Down);
    QTest::keyClick(&picker, Qt::Key_Down);
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_THAT(picked, ElementsAre("Files", "Mail"));
}

TEST_F(ApplicationPickerTest, SetSelectionDoesNotCallOnPick) {
    picker.setSelection(mail);
    EXPECT_EQ(current(), "Mail");
    picker.setSelection(std::nullopt);
    EXPECT_EQ(current(), "Choose an app");
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(ApplicationPickerTest, SelectedApplicationThatIsNotRunningIsShownButNotInTheList) {
    picker.setSelection(gone);
    EXPECT_EQ(current(), "Gone");
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Files", "Mail"));
    EXPECT_THAT(picked, IsEmpty());
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(current(), "Gone") << "there is nothing below";
    QTest::keyClick(&picker, Qt::Key_Up);
    EXPECT_THAT(picked, ElementsAre("Mail"));
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(current(), "Mail") << "it cannot be picked again";
}

TEST_F(ApplicationPickerTest, RenamedApplicationIsShownUnderItsStoredName) {
    picker.setSelection(RunningApp{.bundleID = "mail", .name = "E-Mail"});
    EXPECT_EQ(current(), "E-Mail");
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Files", "Mail"));
}

TEST_F(ApplicationPickerTest, ListIsUpdatedWhenItOpens) {
    picker.setSelection(mail);
    workspace.running = {{"new", "New"}, {"mail", "Mail"}};
    picker.showPopup();
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Mail", "New"));
    EXPECT_EQ(current(), "Mail");
    EXPECT_TRUE(picker.view()->isVisible());
    QTest::keyClick(picker.view(), Qt::Key_Down);
    QTest::keyClick(picker.view(), Qt::Key_Return);
    EXPECT_THAT(picked, ElementsAre("New"));
}

TEST_F(ApplicationPickerTest, ListIsUpdatedWhenThePickerIsShownAndBeforeAKeyPicksAnEntry) {
    workspace.running = {{"new", "New"}};
    picker.hide();
    picker.show();
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "New"));
    workspace.running = {{"newer", "Newer"}};
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_THAT(picked, ElementsAre("Newer"));
}

TEST_F(ApplicationPickerTest, SelectedApplicationStaysSelectedAfterItExits) {
    picker.setSelection(mail);
    workspace.running = {{"files", "Files"}};
    picker.reload();
    EXPECT_EQ(current(), "Mail");
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Files"));
    workspace.running = {{"files", "Files"}, {"mail", "Mail"}};
    picker.reload();
    EXPECT_EQ(current(), "Mail");
    EXPECT_THAT(entries(), ElementsAre("Choose an app", "Files", "Mail"));
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(ApplicationPickerTest, TextsFollowTheLanguageAtOnce) {
    lang.setCode("zh");
    EXPECT_THAT(entries(), ElementsAre("选择 App", "Files", "Mail"));
    EXPECT_EQ(current(), "选择 App");
    picker.setSelection(gone);
    lang.setCode("en");
    EXPECT_EQ(current(), "Gone");
    EXPECT_THAT(picked, IsEmpty());
}

TEST_F(ApplicationPickerTest, IgnoresTheMouseWheel) {
    const QPointF middle = picker.rect().center();
    QWheelEvent turn(middle, picker.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    turn.accept();
    QCoreApplication::sendEvent(&picker, &turn);
    EXPECT_THAT(picked, IsEmpty());
    EXPECT_FALSE(turn.isAccepted()) << "the form scrolls";
}

TEST_F(ApplicationPickerTest, AssistiveTechnologySeesAComboBoxWithAValue) {
    picker.setSelection(gone);
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&picker);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::ComboBox);
    EXPECT_EQ(seen->text(QAccessible::Value), "Gone");
}

} // namespace

} // namespace glidemap
