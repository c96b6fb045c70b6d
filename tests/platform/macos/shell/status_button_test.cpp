#include "cocoa_test.h"
#include "doubles/status_item.h"
#include "platform/macos/shell/menu_bar.h"
#include "platform/macos/shell/status_button.h"

#include <thread>

namespace glidemap {
namespace {

using test::statusItemScene;
using testing::ElementsAre;
using testing::IsEmpty;

class StatusButtonTest : public CocoaTest {
protected:
    StatusButtonTest() { statusItemScene() = {.symbols = {"hand.draw.fill"}}; }
};

TEST_F(StatusButtonTest, ShowsTheSystemSymbolAsATemplateWithADescription) {
    EXPECT_TRUE(showSystemSymbol("hand.draw.fill", "Glidemap", false));
    EXPECT_THAT(journal(), ElementsAre("setImage hand.draw.fill, Glidemap, template",
                                       "setAppearsDisabled NO"));
    EXPECT_TRUE(showSystemSymbol("hand.draw.fill", "Glidemap", true));
    EXPECT_THAT(journal(), ElementsAre("setImage hand.draw.fill, Glidemap, template",
                                       "setAppearsDisabled YES"));
}

TEST_F(StatusButtonTest, KeepsTheDrawnIconIfTheSystemLacksTheSymbol) {
    statusItemScene().symbols.clear();
    EXPECT_FALSE(showSystemSymbol("hand.draw.fill", "Glidemap", true));
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(StatusButtonTest, DoesNothingWithoutAStatusItem) {
    statusItemScene().hasItem = false;
    EXPECT_FALSE(showSystemSymbol("hand.draw.fill", "Glidemap", true));
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(StatusButtonTest, WorksWithoutAnOuterAutoreleasePool) {
    std::thread([] { EXPECT_TRUE(showSystemSymbol("hand.draw.fill", "Glidemap", false)); }).join();
    journal();
}

TEST_F(StatusButtonTest, MenuBarSymbolIsDescribedByTheProgramNameAndAppearsDisabledWhileOff) {
    MenuBar bar;
    bar.itemWasDrawn(StatusBar::Look::off);
    EXPECT_THAT(journal(), ElementsAre("setImage hand.draw.fill, Glidemap, template",
                                       "setAppearsDisabled YES"));
    bar.itemWasDrawn(StatusBar::Look::on);
    EXPECT_THAT(journal(), ElementsAre("setImage hand.draw.fill, Glidemap, template",
                                       "setAppearsDisabled NO"));
}

} // namespace
} // namespace glidemap
