#include "kit/find_widget.h"
#include "kit/qt_waiting.h"
#include "ui/controls/popover.h"
#include "ui/settings/binding_row.h"
#include "ui/settings/settings_stage.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QLayout>
#include <QSignalBlocker>
#include <QTest>

namespace glidemap {
namespace {

// A single row that records its callbacks.
class BindingRowTest : public testing::Test {
protected:
    BindingRow& show(GestureBinding binding) {
        row = std::make_unique<BindingRow>(
            std::move(binding),
            BindingRow::Callbacks{
                [this](bool on) { said.emplace_back(on ? "toggle on" : "toggle off"); },
                [this] { said.emplace_back("edit"); },
                [this] {
                    said.emplace_back("delete");
                }},
            Lang::shared(), &window);
        row->setGeometry(20, 20, 560, BindingRow::usualHeight());
        window.resize(600, 400);
        window.show();
        EXPECT_TRUE(test::waitForWindowExposed(&window));
        return *row;
    }

    QString text(const char* name) const { return row->findChild<QLabel*>(name)->text(); }
    QWidget& part(const char* name) const { return *row->findChild<QWidget*>(name); }
    void click(const char* name) const { QTest::mouseClick(&part(name), Qt::LeftButton); }
    QColor pixel(const char* name, QPoint at) const {
        return window.grab().toImage().pixelColor(part(name).mapTo(&window, at));
    }

    mutable QWidget window;
    std::unique_ptr<BindingRow> row;
    std::vector<std::string> said;
};

const KeyShortcut nextTab{124, modifier::option | modifier::command};

TEST_F(BindingRowTest, ShowsGestureActionAndScopeInBothLanguages) {
    show(test::bound(GestureType::fixAndTapRight, nextTab));
    EXPECT_EQ(text("gestureName"), "Hold + Tap Right");
    EXPECT_EQ(text("actionText"), "Shortcut ⌥⌘→");
    EXPECT_EQ(text("scopeBadge"), "Global");
    Lang::shared().setCode("zh");
    row->retitle();
    EXPECT_EQ(text("gestureName"), "单指固定 + 右侧点按");
    EXPECT_EQ(text("actionText"), "快捷键 ⌥⌘→");
    EXPECT_EQ(text("scopeBadge"), "全局");
    Lang::shared().setCode("en");
}

TEST_F(BindingRowTest, GlobalBindingHasABlueBadge) {
    show(test::bound(GestureType::drawCircle));
    const Theme& theme = Theme::shared();
    EXPECT_EQ(part("scopeBadge").palette().color(QPalette::WindowText), theme.color(Role::blue));
    EXPECT_TRUE(test::looksLike(pixel("scopeBadge", {5, part("scopeBadge").height() / 2}),
                                theme.tint(Role::blue, 1), 0.15, theme.color(Role::window)));
}

TEST_F(BindingRowTest, ApplicationBindingHasAPurpleBadgeWithTheApplicationName) {
    show(test::bound(GestureType::drawCircle, LockScreen{}, AppScope{"org.example", "Writer"}));
    const Theme& theme = Theme::shared();
    EXPECT_EQ(text("scopeBadge"), "Writer");
    EXPECT_EQ(part("scopeBadge").palette().color(QPalette::WindowText), theme.color(Role::purple));
    EXPECT_TRUE(test::looksLike(pixel("scopeBadge", {5, part("scopeBadge").height() / 2}),
                                theme.tint(Role::purple, 1), 0.15, theme.color(Role::window)));
}

TEST_F(BindingRowTest, ControlsAreOrderedFromLeftToRight) {
    show(test::bound(GestureType::drawCircle));
    const char* const order[] = {"enabled",    "preview", "gestureName",
                                 "scopeBadge", "edit",    "delete"};
    const auto seen = [&](const char* name) {
        return test::seenRect(part(name));
    };
    for (std::size_t next = 1; next < std::size(order); ++next) {
        EXPECT_GE(seen(order[next]).left(), seen(order[next - 1]).right() + 1 + 12) << order[next];
    }
    EXPECT_EQ(part("preview").width(), 22);
    EXPECT_GT(part("actionText").y(), part("gestureName").y());
    EXPECT_EQ(seen("preview").left(), seen("enabled").right() + 1 + 12);
    EXPECT_EQ(seen("delete").left(), seen("edit").right() + 1 + 12);
}

TEST_F(BindingRowTest, PreviewSymbolIsAccentColouredAndDeleteSymbolIsRed) {
    show(test::bound(GestureType::drawCircle));
    const std::pair<const char*, Role> rows[] = {{"preview", Role::accent}, {"delete", Role::red}};
    for (const auto& [name, role] : rows) {
        const auto& button = dynamic_cast<const QAbstractButton&>(part(name));
        const QImage drawn = button.icon().pixmap(QSize(64, 64)).toImage();
        const QColor wanted = Theme::shared().color(role);
        bool isThere = false;
        for (int y = 0; y < drawn.height(); ++y) {
            for (int x = 0; x < drawn.width(); ++x) {
                isThere = isThere || drawn.pixelColor(x, y) == wanted;
            }
        }
        EXPECT_TRUE(isThere) << name;
    }
}

TEST_F(BindingRowTest, GestureNameIsProminentButActionTextIsNot) {
    show(test::bound(GestureType::drawCircle));
    const Theme& theme = Theme::shared();
    EXPECT_EQ(part("gestureName").font(), theme.font(TextStyle::bodyMedium));
    EXPECT_EQ(part("actionText").palette().color(QPalette::WindowText),
              theme.color(Role::secondary));
    EXPECT_EQ(part("scopeBadge").font(), theme.font(TextStyle::caption));
}

TEST_F(BindingRowTest, CheckBoxReportsTheClickAndWaitsForTheStore) {
    show(test::bound(GestureType::drawCircle));
    const auto& box = dynamic_cast<QCheckBox&>(part("enabled"));
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(box.text(), "");
    click("enabled");
    EXPECT_EQ(said, (std::vector<std::string>{"toggle off"}));
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(row->binding().enabled);
    GestureBinding disabled = row->binding();
    disabled.enabled = false;
    row->setBinding(disabled);
    EXPECT_FALSE(box.isChecked());
    click("enabled");
    EXPECT_EQ(said, (std::vector<std::string>{"toggle off", "toggle on"}));
}

TEST_F(BindingRowTest, EditAndDeleteButtonsCallTheirCallbacks) {
    show(test::bound(GestureType::drawCircle));
    click("edit");
    click("delete");
    EXPECT_EQ(said, (std::vector<std::string>{"edit", "delete"}));
}

TEST_F(BindingRowTest, DisabledBindingIsDrawnAtHalfOpacityIncludingItsCheckBox) {
    show(test::bound(GestureType::drawCircle, LockScreen{}, AppScope{"org.example", "Writer"}));
    // Samples a pixel of the badge's background and a pixel of the check box.
    const QColor ground = Theme::shared().color(Role::window);
    const auto probes = [&] {
        return std::pair(pixel("scopeBadge", {5, part("scopeBadge").height() / 2}),
                         pixel("enabled", {3, part("enabled").height() / 2}));
    };
    const auto [badge, box] = probes();
    GestureBinding disabled = row->binding();
    disabled.enabled = false;
    row->setBinding(disabled);
    // The check box of a disabled binding is unchecked. Checks the box again, without a signal, so
    // that the two samples differ only in opacity.
    const QSignalBlocker quiet(&part("enabled"));
    dynamic_cast<QCheckBox&>(part("enabled")).setChecked(true);
    const auto [dimmedBadge, dimmedBox] = probes();
    ASSERT_NE(badge, ground);
    ASSERT_NE(box, ground);
    EXPECT_TRUE(test::looksLike(dimmedBadge, badge, 0.5, ground));
    EXPECT_TRUE(test::looksLike(dimmedBox, box, 0.5, ground));
}

TEST_F(BindingRowTest, DisabledBindingStaysUsable) {
    GestureBinding disabled = test::bound(GestureType::drawCircle);
    disabled.enabled = false;
    show(disabled);
    for (const char* name : {"enabled", "edit", "delete"}) {
        EXPECT_TRUE(part(name).isEnabled());
        click(name);
    }
    EXPECT_EQ(said, (std::vector<std::string>{"toggle on", "edit", "delete"}));
    click("preview");
    EXPECT_TRUE(row->showsPreview());
}

TEST_F(BindingRowTest, PreviewSymbolOpensAndClosesTheDemonstration) {
    show(test::bound(GestureType::threeFingerTap));
    EXPECT_EQ(part("preview").toolTip(), "Show gesture demo");
    click("preview");
    ASSERT_TRUE(row->showsPreview());
    const auto* popover = &test::find<Popover>(window, "gesturePreview");
    EXPECT_TRUE(popover->isVisible());
    EXPECT_EQ(popover->findChild<QLabel*>("previewName")->text(), "Three-Finger Tap");
    EXPECT_EQ(popover->findChild<QWidget*>("previewDemo")->size(), QSize(230, 150));
    const auto* detail = popover->findChild<QLabel*>("previewDetail");
    EXPECT_EQ(detail->text(), "Tap the trackpad with multiple fingers at once (no press)");
    EXPECT_EQ(detail->width(), 230);
    EXPECT_TRUE(test::fits(*detail));
    const Theme& theme = Theme::shared();
    EXPECT_EQ(popover->findChild<QLabel*>("previewName")->font(), theme.font(TextStyle::headline));
    EXPECT_EQ(detail->font(), theme.font(TextStyle::caption));
    EXPECT_EQ(detail->palette().color(QPalette::WindowText), theme.color(Role::secondary));
    click("preview");
    EXPECT_FALSE(row->showsPreview());
}

TEST_F(BindingRowTest, ClickOutsideClosesTheDemonstration) {
    show(test::bound(GestureType::threeFingerTap));
    click("preview");
    QTest::mouseClick(&window, Qt::LeftButton, {}, {595, 5});
    EXPECT_FALSE(row->showsPreview());
    click("preview");
    EXPECT_TRUE(row->showsPreview());
}

TEST_F(BindingRowTest, DemonstrationsOfTwoRowsAreIndependent) {
    show(test::bound(GestureType::threeFingerTap));
    BindingRow other(test::bound(GestureType::drawCircle), {}, Lang::shared(), &window);
    other.setGeometry(20, 200, 560, BindingRow::usualHeight());
    other.show();
    row->togglePreview();
    other.togglePreview();
    EXPECT_TRUE(row->showsPreview());
    EXPECT_TRUE(other.showsPreview());
    row->togglePreview();
    EXPECT_FALSE(row->showsPreview());
    EXPECT_TRUE(other.showsPreview());
}

TEST_F(BindingRowTest, OpenDemonstrationFollowsTheLanguageAndTheBinding) {
    show(test::bound(GestureType::threeFingerTap));
    row->togglePreview();
    const auto* name = window.findChild<QLabel*>("previewName");
    Lang::shared().setCode("zh");
    row->retitle();
    EXPECT_EQ(part("preview").toolTip(), "查看手势演示");
    EXPECT_EQ(name->text(), "三指轻点");
    EXPECT_EQ(window.findChild<QLabel*>("previewDetail")->text(),
              "多根手指同时轻点触控板（不按压）");
    Lang::shared().setCode("en");
    GestureBinding changed = row->binding();
    changed.gesture = GestureType::pinchIn;
    row->setBinding(changed);
    EXPECT_EQ(name->text(), "Pinch In");
    EXPECT_TRUE(row->showsPreview());
}

TEST_F(BindingRowTest, DestroyedRowClosesItsDemonstration) {
    show(test::bound(GestureType::threeFingerTap));
    row->togglePreview();
    row.reset();
    EXPECT_TRUE(
        test::waitFor([&] { return window.findChild<QWidget*>("gesturePreview") == nullptr; }));
}

TEST_F(BindingRowTest, LongNamesAreElidedWithoutMovingOtherControls) {
    const std::string name(300, 'W');
    show(test::bound(GestureType::drawCircle, LaunchApp{"org.example", name},
                     AppScope{"org.example", name}));
    EXPECT_LE(row->layout()->minimumSize().width(), 300);
    EXPECT_EQ(part("delete").mapTo(row.get(), QPoint(part("delete").width(), 0)).x(), 560 - 10);
    EXPECT_GT(part("gestureName").width(), 100);
}

TEST_F(BindingRowTest, UsualHeightIsSufficientForEnglishAndChinese) {
    EXPECT_GE(BindingRow::usualHeight(),
              show(test::bound(GestureType::drawCircle)).minimumSizeHint().height());
    Lang::shared().setCode("zh");
    row->retitle();
    EXPECT_GE(BindingRow::usualHeight(), row->minimumSizeHint().height());
    Lang::shared().setCode("en");
}

} // namespace
} // namespace glidemap
