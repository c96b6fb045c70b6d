// Tests the settings window as assistive technology reads it.

#include "ui/settings/binding_list_view.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <set>

namespace glidemap {
namespace {

class SettingsAccessibilityTest : public testing::Test {
protected:
    void SetUp() override { stage.open(); }

    static QAccessibleInterface& described(QWidget* widget) {
        return *QAccessible::queryAccessibleInterface(widget);
    }
    QAccessibleInterface& list() const { return described(stage.find("bindingList")); }
    QString nameInRow(std::size_t row, const char* control) const {
        return described(stage.row(row)->findChild<QWidget*>(control)).text(QAccessible::Name);
    }

    mutable test::SettingsStage stage{
        {test::bound(GestureType::threeFingerTap, KeyShortcut{13, modifier::command}),
         test::bound(GestureType::pinchIn, MissionControl{}, AppScope{"org.example", "Writer"})}};
};

TEST_F(SettingsAccessibilityTest, BindingsAreListItems) {
    EXPECT_EQ(list().role(), QAccessible::List);
    EXPECT_EQ(list().text(QAccessible::Name), "Bindings");
    ASSERT_EQ(list().childCount(), 2);
    const char* const names[] = {"Three-Finger Tap, Shortcut Command W, Global",
                                 "Pinch In, Mission Control, Writer"};
    for (int index = 0; index < 2; ++index) {
        QAccessibleInterface* item = list().child(index);
        EXPECT_EQ(item->role(), QAccessible::ListItem);
        EXPECT_EQ(item->text(QAccessible::Name), names[index]);
        EXPECT_EQ(list().indexOfChild(item), index);
        EXPECT_EQ(item->parent()->object(), list().object());
    }
    EXPECT_EQ(list().child(2), nullptr);
}

TEST_F(SettingsAccessibilityTest, SelectedItemHasTheListFocus) {
    stage.find("bindingList")->setFocus(Qt::TabFocusReason);
    stage.pressKey(Qt::Key_Down);
    EXPECT_FALSE(list().child(0)->state().selected);
    EXPECT_TRUE(list().child(1)->state().selected);
    EXPECT_TRUE(list().child(1)->state().focused);
    EXPECT_EQ(list().focusChild(), list().child(1));
}

TEST_F(SettingsAccessibilityTest, OnlyOneObjectHasTheFocus) {
    stage.find("bindingList")->setFocus(Qt::TabFocusReason);
    const auto focused = [&] {
        int count = list().state().focused ? 1 : 0;
        for (int row = 0; row < list().childCount(); ++row) {
            count += list().child(row)->state().focused ? 1 : 0;
            for (const QAbstractButton* control : stage.row(row)->controls()) {
                count += described(const_cast<QAbstractButton*>(control)).state().focused ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(focused(), 1);
    stage.pressKey(Qt::Key_Down);
    EXPECT_EQ(focused(), 1);
    stage.pressKey(Qt::Key_Right);
    EXPECT_EQ(focused(), 1);
    stage.find("language")->setFocus();
    EXPECT_EQ(focused(), 0);
}

TEST_F(SettingsAccessibilityTest, EachBindingReportsItsPositionAndTheTotal) {
    stage.store->setBindings(test::manyBindings(200));
    ASSERT_EQ(list().childCount(), 200);
    for (const int index : {0, 1, 100, 199}) {
        QAccessibleInterface* const item = list().child(index);
        ASSERT_NE(item, nullptr) << index;
        EXPECT_EQ(item->role(), QAccessible::ListItem);
        EXPECT_EQ(list().indexOfChild(item), index);
        EXPECT_EQ(item->parent(), &list());
        EXPECT_EQ(item->text(QAccessible::Name),
                  BindingRow::spokenName((*stage.store->bindings())[index], Lang::shared()));
    }
    EXPECT_FALSE(list().child(0)->state().offscreen);
    EXPECT_TRUE(list().child(199)->state().offscreen);
    EXPECT_GT(list().child(199)->rect().top(), list().child(100)->rect().top());
    stage.find("bindingList")->setFocus(Qt::TabFocusReason);
    stage.pressKey(Qt::Key_End);
    EXPECT_EQ(list().indexOfChild(list().focusChild()), 199);
    EXPECT_TRUE(list().child(199)->state().focused);
    QAccessibleInterface* const last = list().child(0);
    stage.store->setBindings({});
    EXPECT_FALSE(last->isValid() && last->object() == nullptr);
}

TEST_F(SettingsAccessibilityTest, DisabledBindingIsDescribedAsOff) {
    stage.clickInRow(0, "enabled");
    EXPECT_EQ(list().child(0)->text(QAccessible::Name),
              "Three-Finger Tap, Shortcut Command W, Global, off");
    Lang::shared().setCode("zh");
    EXPECT_EQ(list().child(0)->text(QAccessible::Name), "三指轻点，快捷键 Command W，全局，已关闭");
}

TEST_F(SettingsAccessibilityTest, ShadowedBindingIsDescribedWithTheReason) {
    BindingList twice{test::bound(GestureType::pinchIn), test::bound(GestureType::pinchIn)};
    stage.store->setBindings(twice);
    EXPECT_EQ(list().child(0)->text(QAccessible::Description), "");
    EXPECT_TRUE(stage.row(0)->toolTip().isEmpty());
    const QString reason =
        "Never runs: a binding above it has the same gesture and scope and takes precedence.";
    EXPECT_EQ(list().child(1)->text(QAccessible::Description), reason);
    EXPECT_EQ(stage.row(1)->toolTip(), reason);
    Lang::shared().setCode("zh");
    EXPECT_EQ(stage.row(1)->toolTip(), "不会执行：上方已有手势和生效范围相同的绑定，将优先执行。");
    twice[0].enabled = false;
    stage.store->setBindings(twice);
    EXPECT_TRUE(stage.row(1)->toolTip().isEmpty());
}

void expectNoFrameInside(QAccessibleInterface& of) {
    for (int index = 0; index < of.childCount(); ++index) {
        QAccessibleInterface* const child = of.child(index);
        ASSERT_NE(child, nullptr);
        const auto name = child->text(QAccessible::Name).toStdString();
        EXPECT_NE(child->role(), QAccessible::Border) << name;
        EXPECT_NE(child->role(), QAccessible::Window) << name;
        expectNoFrameInside(*child);
    }
}

TEST_F(SettingsAccessibilityTest, WindowAndNoticesHaveTheirRolesWithoutExtraFrames) {
    stage.trust->trusted = false;
    stage.helper->become(DesktopHelper::State::missing);
    stage.publish("2.0.0");
    stage.clickInRow(0, "delete");
    stage.clickInRow(0, "preview");
    EXPECT_EQ(described(&stage.window()).role(), QAccessible::Window);
    EXPECT_EQ(described(stage.find("permissionNotice")).role(), QAccessible::Notification);
    EXPECT_EQ(described(stage.find("undoBar")).role(), QAccessible::Notification);
    EXPECT_EQ(described(stage.find("gesturePreview")).role(), QAccessible::Dialog);
    expectNoFrameInside(described(&stage.window()));
}

// Detects changes of a control's accessible name by its tooltip changes, because both are set
// together.
class TitleCounter : public QObject {
public:
    int titles = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        titles += event->type() == QEvent::ToolTipChange ? 1 : 0;
        return false;
    }
};

// A changed name might cause a screen reader to read the whole window after each gesture.
TEST_F(SettingsAccessibilityTest, RecognisedGestureChangesNoAccessibleName) {
    TitleCounter counter;
    stage.row(0)->findChild<QWidget*>("preview")->installEventFilter(&counter);
    stage.find("launchAtLogin")->installEventFilter(&counter);
    stage.recognise(GestureType::pinchIn, "Files");
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_EQ(counter.titles, 0);
    Lang::shared().setCode("zh");
    EXPECT_EQ(counter.titles, 2);
}

TEST_F(SettingsAccessibilityTest, NamesOfRowControlsIncludeTheGesture) {
    EXPECT_EQ(nameInRow(0, "enabled"), "Enable Three-Finger Tap");
    EXPECT_EQ(nameInRow(0, "preview"), "Show gesture demo: Three-Finger Tap");
    EXPECT_EQ(nameInRow(1, "edit"), "Edit Pinch In");
    EXPECT_EQ(nameInRow(1, "delete"), "Delete Pinch In");
    Lang::shared().setCode("zh");
    EXPECT_EQ(nameInRow(0, "enabled"), "启用「三指轻点」");
    EXPECT_EQ(nameInRow(0, "preview"), "查看手势演示：「三指轻点」");
    EXPECT_EQ(nameInRow(1, "edit"), "编辑「两指捏合（收拢）」");
    EXPECT_EQ(nameInRow(1, "delete"), "删除「两指捏合（收拢）」");
    EXPECT_EQ(list().child(0)->text(QAccessible::Name), "三指轻点，快捷键 Command W，全局");
}

TEST_F(SettingsAccessibilityTest, CheckBoxesReportTheirState) {
    QAccessibleInterface& box = described(stage.row(0)->findChild<QWidget*>("enabled"));
    EXPECT_EQ(box.role(), QAccessible::CheckBox);
    EXPECT_TRUE(box.state().checked);
    box.actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(stage.store->bindings()->front().enabled);
    EXPECT_FALSE(box.state().checked);
    described(stage.find("enabled"))
        .actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(stage.dispatcher->masterEnabled());
    described(stage.find("launchAtLogin"))
        .actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(stage.loginItems->attempts, (std::vector<std::string>{"register"}));
}

TEST_F(SettingsAccessibilityTest, LanguagePickerHasALabel) {
    const auto* label = stage.find<QLabel>("languageLabel");
    EXPECT_EQ(label->buddy(), stage.find("language"));
    const auto labels = described(stage.find("language")).relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), "Language");
}

TEST_F(SettingsAccessibilityTest, EveryFocusableControlHasAName) {
    stage.trust->trusted = false;
    stage.helper->become(DesktopHelper::State::missing);
    stage.publish("2.0.0");
    for (const char* code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        std::set<QWidget*> seen;
        QWidget* widget = stage.find("launchAtLogin");
        for (; seen.insert(widget).second; widget = widget->nextInFocusChain()) {
            if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                !widget->isWindow()) {
                EXPECT_NE(described(widget).text(QAccessible::Name), "")
                    << code << " " << widget->objectName().toStdString();
            }
        }
        EXPECT_GT(seen.size(), 10U);
    }
}

TEST_F(SettingsAccessibilityTest, TabFollowsTheReadingOrder) {
    stage.trust->trusted = false;
    stage.recognise(GestureType::drawCircle); // shows the notice
    QWidget* focus = stage.find("launchAtLogin");
    focus->setFocus(Qt::TabFocusReason);
    std::vector<std::string> order;
    for (int step = 0; step < 7; ++step) {
        const QString name = stage.window().focusWidget()->objectName();
        order.push_back(name.toStdString());
        stage.pressKey(Qt::Key_Tab);
    }
    EXPECT_EQ(order, (std::vector<std::string>{"launchAtLogin", "language", "enabled", "addBinding",
                                               "", "bindingList", "launchAtLogin"}));
}

// The texts have no mnemonics, so no two mnemonics can collide.
TEST_F(SettingsAccessibilityTest, NoTextHasAMnemonic) {
    for (const QAbstractButton* button : stage.window().findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(button->text().contains('&')) << button->text().toStdString();
    }
}

} // namespace
} // namespace glidemap
