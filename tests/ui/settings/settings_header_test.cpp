#include "kit/larger_letters.h"
#include "ui/controls/styled_label.h"
#include "ui/settings/settings_header.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace glidemap {
namespace {

using Arrangement = SettingsHeader::Arrangement;

class SettingsHeaderTest : public testing::Test {
protected:
    // Return the left and the right edge of a control's visible shape.
    int leftOf(const char* name) const { return test::seenRect(*stage.find(name)).left(); }
    int rightOf(const char* name) const { return test::seenRect(*stage.find(name)).right() + 1; }
    SettingsHeader& header() const {
        return *dynamic_cast<SettingsHeader*>(stage.find("title")->parentWidget());
    }

    // A layout pass may request another pass.
    static void settleLayout() {
        constexpr int rounds = 6;
        for (int round = 0; round < rounds; ++round) {
            QApplication::sendPostedEvents();
            QApplication::processEvents();
        }
    }

    // Checks that each control has its full size, lies within the header and overlaps no other
    // control.
    void expectEverythingIsShown() const {
        const QRect room = header().rect().adjusted(12, 12, -12, -12);
        const char* const names[] = {"title",    "subtitle", "launchAtLogin", "languageLabel",
                                     "language", "enabled",  "addBinding"};
        for (std::size_t index = 0; index < std::size(names); ++index) {
            const QWidget& each = *stage.find(names[index]);
            EXPECT_TRUE(room.contains(test::seenRect(each)) && showsAll(each)) << names[index];
            for (std::size_t other = 0; other < index; ++other) {
                EXPECT_FALSE(
                    test::seenRect(each).intersects(test::seenRect(*stage.find(names[other]))))
                    << names[index] << " and " << names[other];
            }
        }
        EXPECT_LE(header().geometry().right(), stage.window().width() - 1);
    }
    static bool showsAll(const QWidget& control) {
        const QSize size = control.size();
        return control.hasHeightForWidth() ? size.height() >= control.heightForWidth(size.width())
                                           : size.width() >= control.sizeHint().width() &&
                                                 size.height() >= control.sizeHint().height();
    }

    mutable test::SettingsStage stage;
};

struct Text {
    const char* name;
    const char* english;
    const char* chinese;
};

constexpr Text texts[] = {
    {"title", "Trackpad Gesture Bindings", "触控板手势绑定"},
    {"subtitle", "Map trackpad gestures to shortcuts or system actions, globally or per app",
     "把触控板手势映射到快捷键或系统动作，支持全局或按 App 生效"},
    {"launchAtLogin", "Launch at Login", "开机自启动"},
    {"languageLabel", "Language", "语言"},
    {"enabled", "Enabled", "启用"},
    {"addBinding", "Add Binding", "添加绑定"},
};

TEST_F(SettingsHeaderTest, ShowsEnglishTexts) {
    stage.open();
    for (const Text& text : texts) {
        EXPECT_EQ(stage.text(text.name), text.english);
    }
    EXPECT_EQ(stage.find("launchAtLogin")->toolTip(),
              "Start Glidemap automatically when you log in to macOS");
}

TEST_F(SettingsHeaderTest, ShowsChineseTexts) {
    Lang::shared().setCode("zh");
    stage.open();
    for (const Text& text : texts) {
        EXPECT_EQ(stage.text(text.name), text.chinese);
    }
    EXPECT_EQ(stage.find("launchAtLogin")->toolTip(), "登录 macOS 时自动启动 Glidemap");
}

TEST_F(SettingsHeaderTest, LanguageNamesAreTheSameInBothLanguages) {
    stage.open();
    for (const char* code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        const auto* picker = stage.find<QComboBox>("language");
        ASSERT_EQ(picker->count(), 2);
        EXPECT_EQ(picker->itemText(0), "English");
        EXPECT_EQ(picker->itemText(1), "中文");
        EXPECT_EQ(picker->currentData(), code);
    }
}

TEST_F(SettingsHeaderTest, SelectedLanguageAppliesAtOnce) {
    stage.open();
    stage.choose("zh");
    EXPECT_EQ(Lang::shared().code(), "zh");
    EXPECT_EQ(stage.text("title"), "触控板手势绑定");
    stage.choose("en");
    EXPECT_EQ(Lang::shared().code(), "en");
    EXPECT_EQ(stage.text("title"), "Trackpad Gesture Bindings");
}

TEST_F(SettingsHeaderTest, UnknownLanguageShowsEnglishAndSelectsNoEntry) {
    Lang::shared().setCode("fr");
    stage.open();
    EXPECT_EQ(stage.text("title"), "Trackpad Gesture Bindings");
    EXPECT_EQ(stage.find<QComboBox>("language")->currentIndex(), -1);
    EXPECT_EQ(Lang::shared().code(), "fr");
}

TEST_F(SettingsHeaderTest, SwitchControlsTheMasterSwitch) {
    stage.open();
    const auto* enabled = stage.find<QCheckBox>("enabled");
    EXPECT_TRUE(enabled->isChecked());
    stage.click("enabled");
    EXPECT_FALSE(stage.dispatcher->masterEnabled());
    EXPECT_FALSE(enabled->isChecked());
    stage.dispatcher->setMasterEnabled(true); // as if chosen in the menu
    EXPECT_TRUE(enabled->isChecked());
}

TEST_F(SettingsHeaderTest, LaunchAtLoginShowsTheSystemState) {
    stage.loginItems->afterRegistering = LoginItemService::Status::requiresApproval;
    stage.open();
    const auto* launch = stage.find<QCheckBox>("launchAtLogin");
    stage.click("launchAtLogin");
    EXPECT_FALSE(launch->isChecked());
    stage.loginItems->afterRegistering = LoginItemService::Status::enabled;
    stage.click("launchAtLogin");
    EXPECT_TRUE(launch->isChecked());
    stage.click("launchAtLogin");
    EXPECT_FALSE(launch->isChecked());
    EXPECT_EQ(stage.loginItems->attempts,
              (std::vector<std::string>{"register", "register", "unregister"}));
}

TEST_F(SettingsHeaderTest, LaunchAtLoginIsOnIfAnEarlierRunRegisteredTheLoginItem) {
    stage.loginItems->current = LoginItemService::Status::enabled;
    stage.open();
    EXPECT_TRUE(stage.find<QCheckBox>("launchAtLogin")->isChecked());
}

TEST_F(SettingsHeaderTest, UsesOneLineIfWideEnough) {
    stage.open({1000, 640});
    EXPECT_EQ(header().arrangement(), Arrangement::oneLine);
    const char* const order[] = {"title",    "launchAtLogin", "languageLabel",
                                 "language", "enabled",       "addBinding"};
    for (std::size_t next = 1; next < std::size(order); ++next) {
        EXPECT_GE(leftOf(order[next]), rightOf(order[next - 1])) << order[next];
    }
    EXPECT_EQ(rightOf("addBinding"), 1000 - 12);
}

TEST_F(SettingsHeaderTest, WrapsControlsInTheSameOrderIfNarrow) {
    stage.open({680, 480});
    ASSERT_EQ(header().arrangement(), Arrangement::controlsBelow);
    const char* const order[] = {"launchAtLogin", "languageLabel", "language", "enabled",
                                 "addBinding"};
    for (std::size_t next = 1; next < std::size(order); ++next) {
        EXPECT_GE(leftOf(order[next]), rightOf(order[next - 1])) << order[next];
    }
    EXPECT_GE(stage.find("launchAtLogin")->y(), stage.find("subtitle")->geometry().bottom());
    stage.window().resize(1000, 480);
    EXPECT_EQ(header().arrangement(), Arrangement::oneLine);
}

// The layout does not depend on the language in which the header was created.
TEST_F(SettingsHeaderTest, LanguageChangeKeepsTheLayoutAtEveryWidth) {
    for (const char* const first : {"en", "zh"}) {
        Lang::shared().setCode(first);
        stage.open();
        for (int width = 680; width <= 1000; width += 5) {
            stage.window().resize(width, 520);
            stage.choose("en");
            const Arrangement english = header().arrangement();
            stage.choose("zh");
            EXPECT_EQ(header().arrangement(), english) << width;
        }
    }
}

// Checks combinations of font size, window width and language.
TEST_F(SettingsHeaderTest, NoControlIsClippedOrOverlapsAnother) {
    stage.open();
    for (const double factor : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        const test::LargerLetters letters(factor);
        for (int width = 680; width <= 1400; width += 40) {
            stage.window().resize(width, 520);
            for (const char* const code : {"en", "zh"}) {
                stage.choose(code);
                settleLayout();
                SCOPED_TRACE(std::to_string(factor) + " times, " + std::to_string(width) +
                             " points, " + code);
                expectEverythingIsShown();
            }
        }
    }
}

TEST_F(SettingsHeaderTest, WheelDoesNotChangeTheLanguage) {
    stage.open();
    auto& picker = *stage.find("language");
    const QPointF at = picker.rect().center();
    for (const int turn : {120, -120}) {
        QWheelEvent wheel(at, picker.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&picker, &wheel);
        EXPECT_FALSE(wheel.isAccepted());
    }
    EXPECT_EQ(Lang::shared().code(), "en");
}

// The width includes the check mark of the current entry.
TEST_F(SettingsHeaderTest, OpenListIsAsWideAsItsWidestEntry) {
    for (const char* const code : {"en", "zh"}) {
        Lang::shared().setCode(code);
        stage.open();
        auto& picker = *stage.find<QComboBox>("language");
        picker.showPopup();
        for (int index = 0; index < picker.count(); ++index) {
            const QRect seen = picker.view()->visualRect(picker.model()->index(index, 0));
            const int needed =
                picker.view()->sizeHintForIndex(picker.model()->index(index, 0)).width();
            EXPECT_GE(seen.intersected(picker.view()->viewport()->rect()).width(), needed) << code;
        }
        picker.hidePopup();
    }
}

TEST_F(SettingsHeaderTest, BothLanguageNamesFitIntoThePicker) {
    stage.open();
    const auto& picker = *stage.find<QComboBox>("language");
    QStyleOptionComboBox option;
    option.initFrom(&picker);
    const QRect room = picker.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                      QStyle::SC_ComboBoxEditField, &picker);
    ASSERT_EQ(picker.count(), 2);
    for (int index = 0; index < picker.count(); ++index) {
        EXPECT_LE(picker.fontMetrics().horizontalAdvance(picker.itemText(index)), room.width())
            << picker.itemText(index).toStdString();
    }
}

TEST_F(SettingsHeaderTest, HasPaddingOfTwelveAndSpacingOfFourteenPoints) {
    stage.open({1000, 640});
    EXPECT_EQ(leftOf("title"), 12);
    const auto gap = [&](const char* left, const char* right) {
        return leftOf(right) - rightOf(left);
    };
    EXPECT_EQ(gap("launchAtLogin", "languageLabel"), 14);
    EXPECT_EQ(gap("language", "enabled"), 14);
    EXPECT_EQ(gap("enabled", "addBinding"), 14);
    EXPECT_EQ(stage.find("subtitle")->y() - stage.find("title")->geometry().bottom() - 1, 2);
}

TEST_F(SettingsHeaderTest, TitleIsLargeAndSubtitleIsSmallAndPale) {
    stage.open();
    const Theme& theme = Theme::shared();
    const QWidget& title = *stage.find("title");
    const QWidget& subtitle = *stage.find("subtitle");
    EXPECT_EQ(title.font(), theme.font(TextStyle::title2));
    EXPECT_EQ(title.palette().color(QPalette::WindowText), theme.color(Role::primary));
    EXPECT_EQ(subtitle.font(), theme.font(TextStyle::caption));
    EXPECT_EQ(subtitle.palette().color(QPalette::WindowText), theme.color(Role::secondary));
}

TEST_F(SettingsHeaderTest, SystemNotesAddALineToTheLaunchAtLoginTooltip) {
    stage.notes = std::make_shared<test::FakeNotes>();
    stage.notes->login = "Here: at your login";
    stage.open();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(stage.find("launchAtLogin")->toolTip(),
                  "Start Glidemap automatically when you log in to macOS\nHere: at your login");
        Lang::shared().setCode("zh");
        Lang::shared().setCode("en");
    }
}

} // namespace
} // namespace glidemap
