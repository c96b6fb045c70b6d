#include "app/delegate_stage.h"
#include "app/status_item.h"
#include "kit/qt_waiting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QIcon>
#include <QSystemTrayIcon>

namespace glidemap {
namespace {

using std::chrono::milliseconds;
using test::FakeStatusBar;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = StatusBar::Kind;

constexpr milliseconds never{3600000};

class StatusItemTest : public testing::Test {
protected:
    std::unique_ptr<StatusItem> itemThatWaits(milliseconds patience) {
        auto item = std::make_unique<StatusItem>(
            bar,
            [this](Kind kind, StatusItem::Look now) {
                drawnFor.push_back(kind);
                looks.push_back(now);
                return QIcon();
            },
            patience);
        item->redrawOn(look);
        item->onMissing = [this] {
            ++missing;
        };
        item->onFound = [this] {
            ++found;
        };
        return item;
    }

    std::shared_ptr<FakeStatusBar> bar = std::make_shared<FakeStatusBar>();
    Observable look;
    std::vector<Kind> drawnFor;
    std::vector<StatusItem::Look> looks;
    int missing = 0;
    int found = 0;
};

TEST_F(StatusItemTest, IconFitsTheBarAndFollowsTheAppearance) {
    const auto item = itemThatWaits(never);
    look.announceDidChange();
    EXPECT_THAT(drawnFor, IsEmpty()) << "there is nothing to show it in";
    bar->become(Kind::embeds);
    EXPECT_THAT(drawnFor, ElementsAre(Kind::embeds));
    look.announceDidChange();
    EXPECT_THAT(drawnFor, ElementsAre(Kind::embeds, Kind::embeds));
}

// Checks both activation reasons: a bar reports Context when it opens the menu itself.
TEST_F(StatusItemTest, ClickIsReportedUnlessItOpensTheMenu) {
    for (const Kind kind : {Kind::drawsItself, Kind::embeds, Kind::opensMenu}) {
        bar->become(Kind::none);
        const auto item = itemThatWaits(never);
        int clicks = 0;
        item->onActivate = [&clicks] {
            ++clicks;
        };
        bar->become(kind);
        ASSERT_TRUE(item->isShown());
        auto* const shown = item->menu().findChild<QSystemTrayIcon*>();
        ASSERT_NE(shown, nullptr);
        Q_EMIT shown->activated(QSystemTrayIcon::Context);
        EXPECT_EQ(clicks, 0);
        Q_EMIT shown->activated(QSystemTrayIcon::Trigger);
        EXPECT_EQ(clicks, kind == Kind::opensMenu ? 0 : 1);
    }
}

TEST_F(StatusItemTest, IconIsRedrawnOnlyWhenItsAppearanceChanges) {
    using Look = StatusItem::Look;
    const auto item = itemThatWaits(never);
    item->setLook(Look::off);
    bar->become(Kind::embeds);
    EXPECT_THAT(looks, ElementsAre(Look::off));
    item->setLook(Look::off);
    item->setLook(Look::on);
    item->setLook(Look::on);
    EXPECT_THAT(looks, ElementsAre(Look::off, Look::on));
}

// Without this notification, Qt's drawing would replace the bar's own drawing.
TEST_F(StatusItemTest, BarIsNotifiedAfterEachRedrawOfTheItem) {
    using Look = StatusItem::Look;
    const auto item = itemThatWaits(never);
    item->setLook(Look::off);
    look.announceDidChange();
    EXPECT_THAT(bar->drawn, IsEmpty());
    bar->become(Kind::opensMenu);
    EXPECT_THAT(bar->drawn, ElementsAre(Look::off));
    look.announceDidChange();
    item->setLook(Look::on);
    EXPECT_THAT(bar->drawn, ElementsAre(Look::off, Look::off, Look::on));
}

// Some bars can show letters as shortcuts, but not the comma, so they would show only some of the
// shortcuts.
TEST_F(StatusItemTest, BarThatDrawsTheMenuShowsNoShortcuts) {
    for (const Kind kind : {Kind::drawsItself, Kind::embeds, Kind::opensMenu}) {
        bar->become(Kind::none);
        const auto item = itemThatWaits(never);
        for (const char* const keys : {"Ctrl+,", "Ctrl+Q"}) {
            item->menu().addAction("one")->setShortcut(QKeySequence(keys));
        }
        bar->become(kind);
        for (const QAction* const action : item->menu().actions()) {
            EXPECT_EQ(action->shortcut().isEmpty(), kind == Kind::drawsItself);
        }
    }
}

TEST_F(StatusItemTest, IconIsRedrawnAndShortcutsAreRemovedWhenTheBarBeginsToDrawTheMenu) {
    const auto item = itemThatWaits(never);
    item->menu().addAction("one")->setShortcut(QKeySequence("Ctrl+Q"));
    bar->become(Kind::embeds);
    bar->become(Kind::drawsItself);
    EXPECT_THAT(drawnFor, ElementsAre(Kind::embeds, Kind::drawsItself));
    EXPECT_TRUE(item->menu().actions().front()->shortcut().isEmpty());
}

TEST_F(StatusItemTest, BarThatAppearsInTimeIsNeverReportedMissing) {
    const auto item = itemThatWaits(milliseconds(0));
    bar->become(Kind::drawsItself);
    // `later` waits as long as `item` but starts later, so `item` would be reported missing first.
    bool laterIsMissing = false;
    StatusItem later(
        std::make_shared<FakeStatusBar>(), [](Kind, StatusItem::Look) { return QIcon(); },
        milliseconds(0));
    later.onMissing = [&] {
        laterIsMissing = true;
    };
    ASSERT_TRUE(test::waitFor([&] { return laterIsMissing; }));
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(found, 0);
}

TEST_F(StatusItemTest, BarIsReportedMissingOnceAndFoundOnce) {
    const auto item = itemThatWaits(milliseconds(0));
    ASSERT_TRUE(test::waitFor([&] { return missing > 0; }));
    bar->become(Kind::none);
    EXPECT_FALSE(item->isShown());
    bar->become(Kind::embeds);
    bar->become(Kind::none);
    bar->become(Kind::embeds);
    EXPECT_TRUE(item->isShown());
    EXPECT_EQ(missing, 1);
    EXPECT_EQ(found, 1);
}

} // namespace
} // namespace glidemap
