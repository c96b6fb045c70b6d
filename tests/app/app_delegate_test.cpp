#include "app/delegate_stage.h"
#include "kit/qt_waiting.h"
#include "kit/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <memory>

namespace glidemap {
namespace {

using test::DelegateStage;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;
using Texts = std::vector<std::string>;

GestureBinding binding(GestureType gesture, bool enabled = true) {
    GestureBinding made{.gesture = gesture, .action = KeyShortcut{0, 0}, .scope = GlobalScope{}};
    made.enabled = enabled;
    return made;
}

class AppDelegateTest : public testing::Test {
protected:
    void launch(BindingList bindings = {}) {
        stage.reset(); // destroys the previous delegate first
        stage = std::make_unique<DelegateStage>(std::move(bindings));
        relaunch();
    }

    // Returns nullopt if there is no dispatcher.
    std::optional<bool> masterEnabled() const {
        const auto held = stage->dispatcher.lock();
        return held != nullptr ? std::optional(held->masterEnabled()) : std::nullopt;
    }

    void relaunch() {
        stage->delegate = AppDelegate::create(stage->ports());
        stage->delegate->applicationDidFinishLaunching();
        stage->takeNotes();
    }

    // Returns the visible alert, or null.
    static QMessageBox* notice() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            auto* box = qobject_cast<QMessageBox*>(widget);
            if (box != nullptr && box->isVisible()) {
                return box;
            }
        }
        return nullptr;
    }

    bool doubleTapBindingExists(int count) {
        return stage->engine->sessionRecognizer().doubleTapBindingExists(count);
    }

    std::unique_ptr<DelegateStage> stage = std::make_unique<DelegateStage>();
};

TEST_F(AppDelegateTest, ConstructsTheServicesButStartsNothing) {
    stage->delegate = AppDelegate::create(stage->ports());
    EXPECT_THAT(stage->takeNotes(), ElementsAre("store", "update checker"));
    EXPECT_EQ(stage->engine->onGesture, nullptr);
}

TEST_F(AppDelegateTest, LaunchRunsItsStepsInOrder) {
    stage->delegate = AppDelegate::create(stage->ports());
    stage->takeNotes();
    stage->delegate->applicationDidFinishLaunching();
    EXPECT_THAT(stage->takeNotes(),
                ElementsAre("become an accessory", "status item", "trusted? with the prompt",
                            "dispatcher", "fetch https://updates.example/version.json",
                            "repeat every 86400 s", "clicks not needed", "touches", "click tap",
                            "clicks on", "settings window", "activate Glidemap"));
}

TEST_F(AppDelegateTest, TerminationStopsTouchesAndClicksAndIsIdempotent) {
    launch();
    EXPECT_TRUE(stage->receivesTouches());
    stage->delegate->applicationWillTerminate();
    EXPECT_FALSE(stage->receivesTouches());
    EXPECT_THAT(stage->takeNotes(), ElementsAre("clicks off", "no click tap"));
    stage->delegate->applicationWillTerminate();
    stage->delegate->devicesMayHaveChanged();
    EXPECT_THAT(stage->takeNotes(), IsEmpty());
}

TEST_F(AppDelegateTest, TerminationRetriesAFailedSave) {
    const test::TemporaryFolder folder;
    const auto support = folder.write("support", "not a folder");
    stage->store = std::make_shared<BindingStore>([&] { return support; });
    relaunch();
    EXPECT_TRUE(stage->store->saveFailure());
    std::filesystem::remove(support);
    stage->delegate->applicationWillTerminate();
    EXPECT_FALSE(stage->store->saveFailure());
    EXPECT_TRUE(std::filesystem::exists(support / "Glidemap" / "bindings.json"));
}

TEST_F(AppDelegateTest, BackgroundSessionIgnoresTouchesAndClicks) {
    launch({binding(GestureType::threeFingerClick)});
    stage->session->setActive(false);
    EXPECT_FALSE(stage->receivesTouches());
    stage->delegate->devicesMayHaveChanged();
    EXPECT_THAT(stage->takeNotes(), ElementsAre("clicks off", "no click tap"));
    stage->session->setActive(true);
    EXPECT_TRUE(stage->receivesTouches());
    EXPECT_THAT(stage->takeNotes(), IsSupersetOf({"touches", "click tap", "clicks on"}));
}

TEST_F(AppDelegateTest, SearchesForTouchDevicesAgainAfterADeviceChange) {
    launch();
    stage->delegate->devicesMayHaveChanged();
    EXPECT_THAT(stage->takeNotes(), ElementsAre("touches"));
}

TEST_F(AppDelegateTest, RecognisedGestureReachesTheDispatcher) {
    launch({binding(GestureType::twoFingerTap)});
    stage->engine->onGesture(GestureType::twoFingerTap);
    stage->mainQueue->runAll();
    EXPECT_EQ(stage->keyEvents->posts.size(), 1U);
    EXPECT_EQ(stage->dispatcher.lock()->recentEvents().size(), 1U);
}

TEST_F(AppDelegateTest, ClickIsSwallowedIfABindingRuns) {
    launch({binding(GestureType::threeFingerClick)});
    const auto press = [&] {
        return stage->clickTap->offer({ClickEventType::leftMouseDown, 0});
    };
    stage->touch(2); // no binding for two-finger clicks
    EXPECT_EQ(press(), ClickTap::Verdict::pass);
    stage->touch(3);
    EXPECT_EQ(press(), ClickTap::Verdict::drop);
    stage->delegate->toggleEnabled();
    EXPECT_EQ(press(), ClickTap::Verdict::pass);
    stage->mainQueue->runAll();
    EXPECT_EQ(stage->keyEvents->posts.size(), 1U);
}

TEST_F(AppDelegateTest, ClicksAreFilteredOnlyWhileAClickIsBound) {
    launch();
    stage->store->setBindings({binding(GestureType::twoFingerClick)});
    EXPECT_THAT(stage->takeNotes(), ElementsAre("clicks needed"));
    stage->delegate->toggleEnabled();
    EXPECT_THAT(stage->takeNotes(), ElementsAre("clicks not needed"));
}

TEST_F(AppDelegateTest, OnlyAnEnabledDoubleTapWithTheSameFingerCountDelaysSingleTaps) {
    struct Row {
        const char* what;
        BindingList bindings;
        std::vector<bool> answers; // for 0 to 6 fingers
    };
    const Row rows[] = {
        {"nothing is bound", {}, {false, false, false, false, false, false, false}},
        {"a double tap of two",
         {binding(GestureType::twoFingerDoubleTap)},
         {false, false, true, false, false, false, false}},
        {"a double tap of three",
         {binding(GestureType::threeFingerDoubleTap)},
         {false, false, false, true, false, false, false}},
        {"a double tap of four",
         {binding(GestureType::fourFingerDoubleTap)},
         {false, false, false, false, true, false, false}},
        {"a disabled one",
         {binding(GestureType::threeFingerDoubleTap, false)},
         {false, false, false, false, false, false, false}},
        {"a tap of five",
         {binding(GestureType::fiveFingerTap)},
         {false, false, false, false, false, false, false}},
    };
    for (const Row& row : rows) {
        launch(row.bindings);
        for (int count = 0; count <= 6; ++count) {
            EXPECT_EQ(doubleTapBindingExists(count), row.answers[static_cast<std::size_t>(count)])
                << row.what << ", " << count;
        }
    }
}

TEST_F(AppDelegateTest, DoubleTapScopeDoesNotAffectTheSingleTapDelay) {
    auto scoped = binding(GestureType::twoFingerDoubleTap);
    scoped.scope = AppScope{"org.example.Editor", "Editor"};
    launch({scoped});
    EXPECT_TRUE(doubleTapBindingExists(2));
}

TEST_F(AppDelegateTest, CallbacksDoNothingAfterTheDelegateIsDestroyed) {
    launch({binding(GestureType::twoFingerDoubleTap), binding(GestureType::twoFingerTap)});
    stage->delegate->checkForUpdates();
    const auto query = stage->engine->sessionRecognizer().doubleTapBindingExists;
    const auto received = stage->engine->onGesture;
    ASSERT_TRUE(query(2));
    stage->takeNotes();
    std::weak_ptr gone = stage->delegate;
    stage->delegate->applicationWillTerminate();
    stage->delegate.reset();
    ASSERT_TRUE(gone.expired());
    EXPECT_TRUE(stage->dispatcher.expired());
    EXPECT_TRUE(stage->window.isNull());
    EXPECT_FALSE(query(2));
    received(GestureType::twoFingerTap);
    stage->mainQueue->runAll();
    EXPECT_THAT(stage->keyEvents->posts, IsEmpty());
    stage->openChecks.back()({"", "no network"}); // an alert would block here forever
    EXPECT_THAT(stage->takeNotes(), ElementsAre("clicks off", "no click tap"));
}

TEST_F(AppDelegateTest, StatusMenuItemsHaveNoTitlesUntilTheMenuOpens) {
    launch();
    EXPECT_EQ(stage->titles(), (Texts{"", "-", "", "", "-", ""}));
    EXPECT_EQ(stage->statusItem->menu().actions().size(), 7);
    EXPECT_FALSE(stage->item(4).isVisible());
    EXPECT_EQ(stage->item(2).shortcut(), QKeySequence("Ctrl+,"));
    EXPECT_EQ(stage->item(6).shortcut(), QKeySequence("Ctrl+Q"));
    for (const int place : {0, 3, 4}) {
        EXPECT_TRUE(stage->item(place).shortcut().isEmpty()) << place;
    }
}

TEST_F(AppDelegateTest, StatusMenuTitlesUseTheCurrentLanguage) {
    launch();
    const Texts english{"Enable Gestures",    "-", "Settings…",
                        "Check for Updates…", "-", "Quit Glidemap"};
    const Texts chinese{"启用手势", "-", "设置…", "检查更新…", "-", "退出 Glidemap"};
    for (const char* code : {"en", "fr", "", "zh-Hans"}) {
        stage->lang.setCode(code);
        stage->openMenu();
        EXPECT_EQ(stage->titles(), english) << code;
    }
    stage->lang.setCode("zh");
    EXPECT_EQ(stage->titles(), english);
    stage->openMenu();
    EXPECT_EQ(stage->titles(), chinese);
}

TEST_F(AppDelegateTest, NewerVersionIsOfferedTheNextTimeTheMenuOpens) {
    launch();
    stage->publish("1.3");
    EXPECT_FALSE(stage->item(4).isVisible());
    stage->openMenu();
    EXPECT_EQ(stage->titles()[4], "Download v1.3…");
    stage->item(4).trigger();
    EXPECT_THAT(stage->workspace->opened, ElementsAre("url https://updates.example/"));

    stage->lang.setCode("zh");
    stage->openMenu();
    EXPECT_EQ(stage->titles()[4], "下载新版本 v1.3…");
}

TEST_F(AppDelegateTest, ObsoleteUpdateItemIsHiddenAndKeepsItsTitle) {
    launch();
    stage->publish("1.3");
    stage->openMenu();
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    stage->delegate->checkForUpdates();
    stage->publish("1.2");
    stage->openMenu();
    EXPECT_FALSE(stage->item(4).isVisible());
    EXPECT_EQ(stage->item(4).text(), "Download v1.3…");
}

TEST_F(AppDelegateTest, AmpersandInAVersionIsEscaped) {
    launch();
    stage->publish("2.&b");
    stage->openMenu();
    EXPECT_EQ(stage->item(4).text(), "Download v2.&&b…"); // the menu shows a single &
}

// Some systems slow down a program without a window unless it announces that gestures are on.
TEST_F(AppDelegateTest, ShellIsNotifiedWhenGesturesAreSwitchedOnOrOff) {
    launch();
    ASSERT_FALSE(stage->shell->gestureStates.empty());
    EXPECT_EQ(stage->shell->gestureStates.back(), true);
    stage->delegate->toggleEnabled();
    EXPECT_EQ(stage->shell->gestureStates.back(), false);
    stage->delegate->toggleEnabled();
    EXPECT_EQ(stage->shell->gestureStates.back(), true);
    stage->defaults->storedBooleans["masterEnabled"] = false;
    relaunch();
    EXPECT_EQ(stage->shell->gestureStates.back(), false);
}

TEST_F(AppDelegateTest, MenuSwitchesGesturesOffAndOnAgain) {
    launch();
    stage->openMenu();
    EXPECT_TRUE(stage->item(0).isChecked());
    stage->item(0).trigger();
    EXPECT_EQ(masterEnabled(), false);
    EXPECT_EQ(stage->defaults->booleanWrites.back(),
              std::pair(std::string("masterEnabled"), false));
    stage->openMenu();
    EXPECT_FALSE(stage->item(0).isChecked());
    stage->item(0).trigger();
    stage->openMenu();
    EXPECT_TRUE(stage->item(0).isChecked());
    EXPECT_EQ(masterEnabled(), true);
}

TEST_F(AppDelegateTest, CheckMarkShowsTheMasterSwitchStateOfThePreviousRun) {
    stage->defaults->storedBooleans["masterEnabled"] = false;
    relaunch();
    stage->openMenu();
    EXPECT_FALSE(stage->item(0).isChecked());
}

TEST_F(AppDelegateTest, StatusIconShowsWhetherGesturesAreOn) {
    using Look = StatusItem::Look;
    stage->statusBar->become(StatusBar::Kind::embeds);
    relaunch();
    EXPECT_THAT(stage->iconLooks, testing::Not(IsEmpty()));
    EXPECT_THAT(stage->iconLooks, testing::Each(Look::on));
    stage->iconLooks.clear();
    stage->delegate->toggleEnabled();
    EXPECT_THAT(stage->iconLooks, ElementsAre(Look::off));
    stage->delegate->toggleEnabled();
    EXPECT_THAT(stage->iconLooks, ElementsAre(Look::off, Look::on));
    stage->dispatcher.lock()->setMasterEnabled(false); // as the settings window does
    EXPECT_THAT(stage->iconLooks, ElementsAre(Look::off, Look::on, Look::off));
}

TEST_F(AppDelegateTest, StatusIconIsDimmedAtLaunchIfGesturesWereSwitchedOff) {
    stage->defaults->storedBooleans["masterEnabled"] = false;
    stage->statusBar->become(StatusBar::Kind::embeds);
    relaunch();
    ASSERT_THAT(stage->iconLooks, testing::Not(IsEmpty()));
    EXPECT_EQ(stage->iconLooks.back(), StatusItem::Look::off);
}

TEST_F(AppDelegateTest, QuittingFromTheMenuEndsTheProgram) {
    launch();
    stage->item(6).trigger();
    EXPECT_THAT(stage->takeNotes(), ElementsAre("terminate"));
}

// A status bar that draws the menu itself may read it at any time, so the next two tests do not
// open the menu.
TEST_F(AppDelegateTest, MenuIsAlwaysUpToDateIfTheStatusBarDrawsIt) {
    stage->statusBar->become(StatusBar::Kind::drawsItself);
    relaunch();
    EXPECT_EQ(stage->titles()[0], "Enable Gestures");
    stage->lang.setCode("zh");
    EXPECT_EQ(stage->titles()[0], "启用手势");
    stage->publish("1.3");
    EXPECT_EQ(stage->titles()[4], "下载新版本 v1.3…");
    stage->delegate->toggleEnabled();
    EXPECT_FALSE(stage->item(0).isChecked());
}

TEST_F(AppDelegateTest, MenuIsUpToDateWhenAStatusBarThatDrawsItAppearsLate) {
    launch();
    EXPECT_FALSE(stage->statusItem->isShown());
    stage->statusBar->become(StatusBar::Kind::drawsItself);
    EXPECT_TRUE(stage->statusItem->isShown());
    EXPECT_EQ(stage->titles()[0], "Enable Gestures");
}

TEST_F(AppDelegateTest, MissingStatusBarIsReportedOnceAndTheNoticeClosesWhenABarAppears) {
    stage->patienceForBar = std::chrono::milliseconds(0);
    relaunch();
    ASSERT_TRUE(test::waitFor([&] { return notice() != nullptr; }));
    EXPECT_EQ(notice()->text(), "This desktop has no status bar");
    EXPECT_FALSE(notice()->isModal());
    stage->lang.setCode("zh");
    EXPECT_EQ(notice()->text(), "此桌面没有状态栏");
    stage->statusBar->become(StatusBar::Kind::embeds);
    EXPECT_EQ(notice(), nullptr);
    EXPECT_TRUE(stage->statusItem->isShown());
}

// The user may be typing in another program, which must not lose the keyboard focus.
TEST_F(AppDelegateTest, ReportOfAMissingStatusBarWaitsUntilTheWindowIsInFront) {
    launch();
    stage->window->close();
    stage->statusItem->onMissing();
    EXPECT_EQ(notice(), nullptr);
    stage->delegate->openSettings();
    ASSERT_TRUE(test::waitFor([&] { return notice() != nullptr; }));
    notice()->close();
    stage->window->close();
    stage->delegate->openSettings();
    EXPECT_EQ(notice(), nullptr) << "it is shown once";
}

TEST_F(AppDelegateTest, PendingReportOfAMissingStatusBarIsDroppedWhenABarAppears) {
    launch();
    stage->window->close();
    stage->statusItem->onMissing();
    stage->statusItem->onFound();
    stage->delegate->openSettings();
    EXPECT_EQ(notice(), nullptr);
}

TEST_F(AppDelegateTest, SettingsWindowIsHiddenWhenClosedAndReusedWhenOpenedAgain) {
    launch();
    const QWidget* first = stage->window;
    stage->window->close();
    EXPECT_FALSE(stage->window.isNull());
    EXPECT_FALSE(stage->window->isVisible());
    stage->item(2).trigger();
    EXPECT_EQ(stage->window, first);
    EXPECT_TRUE(stage->window->isVisible());
    EXPECT_THAT(stage->takeNotes(), ElementsAre("activate Glidemap"));
}

TEST_F(AppDelegateTest, MinimisedWindowIsRestored) {
    launch();
    stage->window->showMinimized();
    stage->delegate->openSettings();
    EXPECT_FALSE(stage->window->isMinimized());
}

TEST_F(AppDelegateTest, MainMenuWorksInTheWindowAndIsAlwaysEnglish) {
    launch();
    stage->lang.setCode("zh");
    Texts items;
    for (const QAction* action : stage->window->actions()) {
        items.push_back(action->text().toStdString() + " " +
                        action->shortcut().toString().toStdString());
    }
    EXPECT_EQ(items, (Texts{"Quit Glidemap Ctrl+Q", "Undo Ctrl+Z", "Redo Ctrl+Shift+Z",
                            "Cut Ctrl+X", "Copy Ctrl+C", "Paste Ctrl+V", "Select All Ctrl+A"}));
    stage->window->activateWindow();
    ASSERT_TRUE(test::waitForWindowActive(stage->window.data()));
    QTest::keyClick(stage->window.data(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_THAT(stage->takeNotes(), ElementsAre("terminate"));
}

TEST_F(AppDelegateTest, EditMenuActsOnTheFocusedWidget) {
    launch();
    const auto choose = [&](int place) {
        stage->window->actions().at(place)->trigger();
    };
    constexpr int undo = 1;
    constexpr int cut = 3;
    constexpr int paste = 5;
    constexpr int selectAll = 6;
    QLineEdit field("hand", stage->window);
    QWidget other(stage->window);
    field.show();
    stage->window->activateWindow();
    ASSERT_TRUE(test::waitForWindowActive(stage->window.data()));
    field.setFocus();
    choose(selectAll);
    EXPECT_EQ(field.selectedText(), "hand");
    choose(cut);
    EXPECT_EQ(field.text(), "");
    choose(paste);
    EXPECT_EQ(field.text(), "hand");
    choose(undo);
    EXPECT_EQ(field.text(), "");
    other.setFocusPolicy(Qt::StrongFocus);
    other.show();
    other.setFocus();
    choose(paste); // QWidget has no slot for this command
    EXPECT_EQ(field.text(), "");
}

// The content of the alert that shows the result of an update check.
struct Shown {
    std::string message;
    std::string informative;
    Texts buttons;

    friend bool operator==(const Shown&, const Shown&) = default;
    friend void PrintTo(const Shown& shown, std::ostream* stream) {
        *stream << shown.message << " | " << shown.informative;
        for (const std::string& button : shown.buttons) {
            *stream << " [" << button << "]";
        }
    }
};

class UpdateAlertTest : public AppDelegateTest {
protected:
    // Checks for updates with `fetched` as the server's response, and clicks the alert's button
    // titled `press`. Without such a button, closes the alert. Returns what the alert showed.
    Shown checkAnd(const Fetched& fetched, const std::string& press) {
        Shown shown;
        stage->shell->onActivate = [&](QWidget& widget) {
            auto& box = dynamic_cast<QMessageBox&>(widget);
            QTimer::singleShot(0, &box, [&shown, &box, press] {
                EXPECT_TRUE(box.isModal());
                shown = {box.text().toStdString(), box.informativeText().toStdString(), {}};
                QAbstractButton* chosen = nullptr;
                for (QAbstractButton* button : box.buttons()) {
                    shown.buttons.push_back(button->text().toStdString());
                    chosen = shown.buttons.back() == press ? button : chosen;
                }
                if (chosen != nullptr) {
                    chosen->click();
                } else {
                    box.close();
                }
            });
        };
        stage->openChecks.clear();
        stage->delegate->checkForUpdates();
        if (!stage->openChecks.empty()) {
            stage->answerUpdateCheck(fetched);
        }
        stage->shell->onActivate = {};
        return shown;
    }

    static Fetched published(const std::string& version) {
        return {"{\"version\": \"" + version + "\"}", std::nullopt};
    }
    const Fetched unreachable{"", "Host not found: the system's words"};
};

TEST_F(UpdateAlertTest, AlertTextsMatchTheOutcomeInEnglish) {
    launch();
    EXPECT_EQ(checkAnd(unreachable, "OK"),
              (Shown{"Update check failed",
                     "Could not reach the update server. Check your network and try again.",
                     {"OK"}}));
    EXPECT_EQ(checkAnd({"[]", std::nullopt}, "OK").message, "Update check failed");
    EXPECT_EQ(checkAnd(published("1.2"), "OK"),
              (Shown{"You're up to date", "Glidemap v1.2 is the latest version.", {"OK"}}));
    EXPECT_EQ(checkAnd(published("1.3"), "Later"),
              (Shown{"New version available",
                     "Glidemap v1.3 is available (you have v1.2).",
                     {"Download", "Later"}}));
}

TEST_F(UpdateAlertTest, AlertTextsMatchTheOutcomeInChinese) {
    launch();
    stage->lang.setCode("zh");
    EXPECT_EQ(checkAnd(unreachable, "好"),
              (Shown{"检查更新失败", "无法连接更新服务器，请检查网络后重试。", {"好"}}));
    EXPECT_EQ(checkAnd(published("1.1"), "好"),
              (Shown{"已是最新版本", "Glidemap v1.2 已是最新版本。", {"好"}}));
    EXPECT_EQ(checkAnd(published("1.3"), "稍后"),
              (Shown{"发现新版本", "Glidemap v1.3 已发布（当前 v1.2）。", {"前往下载", "稍后"}}));
}

TEST_F(UpdateAlertTest, OpenAlertFollowsTheLanguage) {
    launch();
    Shown shown;
    stage->shell->onActivate = [&](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        QTimer::singleShot(0, &box, [&] {
            stage->lang.setCode("zh");
            shown = {box.text().toStdString(), box.informativeText().toStdString(), {}};
            for (const QAbstractButton* button : box.buttons()) {
                shown.buttons.push_back(button->text().toStdString());
            }
            box.close();
        });
    };
    stage->openChecks.clear();
    stage->delegate->checkForUpdates();
    stage->publish("1.3");
    EXPECT_EQ(shown,
              (Shown{"发现新版本", "Glidemap v1.3 已发布（当前 v1.2）。", {"前往下载", "稍后"}}));
}

TEST_F(UpdateAlertTest, UnknownRunningVersionIsReportedAsUpToDateWithoutContactingTheServer) {
    stage->runningVersion = std::nullopt;
    relaunch();
    EXPECT_EQ(checkAnd(unreachable, "OK"),
              (Shown{"You're up to date", "Glidemap v? is the latest version.", {"OK"}}));
    EXPECT_THAT(stage->takeNotes(), ElementsAre("activate Glidemap"));
}

TEST_F(UpdateAlertTest, OnlyTheDownloadButtonOpensTheWebsite) {
    launch();
    checkAnd(published("1.3"), "Later");
    checkAnd(published("1.3"), "(closed)");
    checkAnd(published("1.2"), "OK");
    checkAnd(unreachable, "OK");
    EXPECT_THAT(stage->workspace->opened, IsEmpty());
    checkAnd(published("1.3"), "Download");
    EXPECT_THAT(stage->workspace->opened, ElementsAre("url https://updates.example/"));
}

TEST_F(UpdateAlertTest, BackgroundCheckShowsNoAlert) {
    launch();
    stage->answerUpdateCheck(unreachable);
    EXPECT_THAT(stage->takeNotes(), IsEmpty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(UpdateAlertTest, VersionIsShownAsPlainText) {
    launch();
    stage->shell->onActivate = [&](QWidget& widget) {
        for (const QLabel* label : widget.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        }
        QTimer::singleShot(0, &widget, &QWidget::close);
    };
    stage->openChecks.clear();
    stage->delegate->checkForUpdates();
    stage->publish("2.<b>1</b>");
}

TEST_F(UpdateAlertTest, GesturesWorkWhileAnAlertIsOpen) {
    launch({binding(GestureType::twoFingerTap)});
    std::size_t posted = 0;
    stage->shell->onActivate = [&](QWidget& widget) {
        QTimer::singleShot(0, &widget, [&] {
            stage->engine->onGesture(GestureType::twoFingerTap);
            stage->mainQueue->runAll();
            posted = stage->keyEvents->posts.size();
            widget.close();
        });
    };
    stage->openChecks.clear();
    stage->delegate->checkForUpdates();
    stage->publish("1.2");
    EXPECT_EQ(posted, 1U);
}

} // namespace
} // namespace glidemap
