#include "ui/settings/settings_stage.h"
#include "ui/settings/settings_window.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <limits>

namespace glidemap {
namespace {

class SettingsWindowTest : public testing::Test {
protected:
    SettingsWindow& open() { return stage.open(); }
    // Returns the geometry of a new window that restores the stored geometry.
    QRect placeGiven(const WindowGeometry& remembered) {
        stage.geometry->kept = remembered;
        const SettingsWindow& window = stage.make();
        return {window.pos(), window.size()};
    }
    QRect screen() const { return QGuiApplication::primaryScreen()->availableGeometry(); }

    test::SettingsStage stage;
};

TEST_F(SettingsWindowTest, IsTitledGlidemapAndStartsCentredAtItsDefaultSize) {
    const SettingsWindow& window = stage.make();
    EXPECT_EQ(window.windowTitle(), "Glidemap");
    EXPECT_EQ(window.size(), QSize(720, 520));
    const QPoint offCentre = window.geometry().center() - screen().center();
    EXPECT_LE(offCentre.manhattanLength(), 2);
}

TEST_F(SettingsWindowTest, CannotBeSmallerThanItsContent) {
    SettingsWindow& window = open();
    window.resize(100, 100);
    EXPECT_EQ(window.size(), QSize(680, 480));
    EXPECT_EQ(window.view().size(), QSize(680, 480));
}

TEST_F(SettingsWindowTest, ClosingOnlyHidesTheWindow) {
    SettingsWindow& window = open();
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
    EXPECT_FALSE(window.testAttribute(Qt::WA_DeleteOnClose));
    window.show();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(SettingsWindowTest, StoresItsPositionWhenClosed) {
    SettingsWindow& window = open();
    window.resize(700, 500);
    window.move(30, 40);
    window.close();
    EXPECT_EQ(stage.geometry->kept, (WindowGeometry{30, 40, 700, 500, false}));
}

TEST_F(SettingsWindowTest, StoresItsPositionWhenTheProgramQuitsWhileItIsOpen) {
    SettingsWindow& window = open();
    window.resize(700, 500);
    window.move(30, 40);
    stage.close();
    EXPECT_EQ(stage.geometry->kept, (WindowGeometry{30, 40, 700, 500, false}));
}

TEST_F(SettingsWindowTest, RestoresItsPositionAtTheNextLaunch) {
    EXPECT_EQ(placeGiven({30, 40, 700, 490, false}), QRect(30, 40, 700, 490));
}

TEST_F(SettingsWindowTest, OffscreenWindowIsMovedFullyOntoTheScreen) {
    const int lastX = screen().right() + 1 - 700;
    const int lastY = screen().bottom() + 1 - 490;
    const struct {
        QPoint remembered;
        QPoint corrected;
    } rows[] = {
        {{5000, 40}, {lastX, 40}},
        {{30, -5000}, {30, screen().top()}},
        {{-650, 40}, {screen().left(), 40}},
        {{30, screen().bottom() - 10}, {30, lastY}},
        {{lastX + 1, lastY + 1}, {lastX, lastY}},
        {{lastX, lastY}, {lastX, lastY}},
    };
    for (const auto& row : rows) {
        const QRect place = placeGiven({row.remembered.x(), row.remembered.y(), 700, 490, false});
        EXPECT_EQ(place, QRect(row.corrected, QSize(700, 490)));
    }
}

TEST_F(SettingsWindowTest, GeometryWithAnInvalidPositionIsIgnored) {
    constexpr int limit = std::numeric_limits<int>::max();
    for (const int nonsense : {limit, -limit}) {
        const QRect place = placeGiven({nonsense, 40, 700, 490, false});
        EXPECT_EQ(place.size(), SettingsWindow::contentSize);
        EXPECT_LE((place.center() - screen().center()).manhattanLength(), 2);
    }
}

TEST_F(SettingsWindowTest, InvalidSizeIsClamped) {
    EXPECT_EQ(placeGiven({30, 40, 10, 10, false}).size(), QSize(680, 480));
    const QSize huge = placeGiven({0, 0, 900'000, 900'000, false}).size();
    EXPECT_LE(huge.width(), screen().width());
    EXPECT_LE(huge.height(), screen().height());
}

TEST_F(SettingsWindowTest, MaximisedWindowIsRestoredMaximisedAndKeepsItsNormalPosition) {
    SettingsWindow& window = open();
    ASSERT_GT(window.geometry().y(), window.pos().y()) << "the window has no frame";
    window.resize(700, 500);
    window.move(30, 40);
    window.showMaximized();
    window.close();
    constexpr WindowGeometry maximised{30, 40, 700, 500, true};
    EXPECT_EQ(stage.geometry->kept, maximised);
    SettingsWindow& restored = stage.make();
    restored.show();
    EXPECT_TRUE(restored.isMaximized());
    restored.close();
    EXPECT_EQ(stage.geometry->kept, maximised);
    restored.showNormal();
    restored.close();
    EXPECT_EQ(stage.geometry->kept, (WindowGeometry{30, 40, 700, 500, false}));
}

TEST_F(SettingsWindowTest, UsesTheDefaultSizeWithoutAGeometryStore) {
    stage.geometry.reset();
    EXPECT_EQ(open().size(), QSize(720, 520));
    stage.close();
}

} // namespace
} // namespace glidemap
