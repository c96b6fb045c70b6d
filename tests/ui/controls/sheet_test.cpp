#include "kit/qt_waiting.h"
#include "ui/controls/sheet.h"
#include "ui/controls/stage.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QImage>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <set>

namespace glidemap {
namespace {

using test::ControlsStage;

// The screen of the offscreen platform is 800 × 800.
class SheetTest : public testing::Test {
protected:
    SheetTest() {
        column->addWidget(first);
        column->addWidget(cancel);
        column->addWidget(save);
        save->setDefault(true);
        stage.open();
    }
    ~SheetTest() override {
        Theme::shared().pinCompositing({});
        Theme::shared().pinSystemSheets({});
        if (sheet == nullptr) {
            delete content;
        }
    }

    void present(QSize size = QSize(460, 640)) {
        sheet = new Sheet(&stage, content, size);
        sheet->onClosed = [this] {
            ++closings;
        };
        sheet->present();
        EXPECT_TRUE(test::waitFor([this] { return QApplication::activeWindow() == sheet; }));
    }

    // Returns the position of a sheet of this width: centred in the window, ten points below its
    // title bar.
    QPoint placeFor(int width) const {
        return stage.mapToGlobal(QPoint((stage.width() - width) / 2, 10));
    }

    bool hasGone() {
        return test::waitFor([this] { return sheet == nullptr; });
    }

    test::InStillness still;
    ControlsStage stage;
    QPointer<QWidget> content = new QWidget;
    QVBoxLayout* column = new QVBoxLayout(content);
    QPushButton* first = new QPushButton(QStringLiteral("First"));
    QPushButton* cancel = new QPushButton(QStringLiteral("Cancel"));
    QPushButton* save = new QPushButton(QStringLiteral("Save"));
    QPointer<Sheet> sheet;
    int closings = 0;
};

TEST_F(SheetTest, ContentHasTheRequestedSize) {
    present();
    EXPECT_EQ(content->size(), QSize(460, 640));
    EXPECT_EQ(sheet->cardGeometry().size(), QSize(460, 640));
}

TEST_F(SheetTest, IsCentredBelowTheTitleBarOfTheBlockedWindow) {
    stage.move(20, 30);
    present(QSize(400, 300));
    EXPECT_EQ(sheet->cardGeometry().topLeft(), placeFor(400));
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->parentWidget(), &stage);
}

TEST_F(SheetTest, FollowsItsWindow) {
    present(QSize(400, 300));
    stage.move(60, 70);
    EXPECT_TRUE(test::waitFor([this] { return sheet->cardGeometry().topLeft() == placeFor(400); }));
}

TEST_F(SheetTest, FitsTheScreenAndScrollsTallContent) {
    content->setMinimumHeight(2000);
    present(QSize(460, 2000));
    const QRect screen = stage.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(sheet->cardGeometry()));
    EXPECT_EQ(sheet->cardGeometry().height(), screen.height() - 16);
    EXPECT_EQ(content->height(), 2000);
    EXPECT_EQ(content->width(), 460); // does not include the scroll bar
}

TEST_F(SheetTest, GrowsWithTheWidthOfItsContent) {
    present();
    first->setMinimumWidth(500);
    EXPECT_TRUE(test::waitFor([this] { return sheet->cardGeometry().width() > 500; }));
    EXPECT_EQ(content->width(), sheet->cardGeometry().width());
    first->setMinimumWidth(0);
    EXPECT_TRUE(test::waitFor([this] { return sheet->cardGeometry().width() == 460; }));
}

TEST_F(SheetTest, ShrinkableContentDoesNotScroll) {
    present(QSize(460, 2000));
    EXPECT_EQ(content->size(), sheet->cardGeometry().size());
}

TEST_F(SheetTest, TabStaysWithinTheSheet) {
    present();
    std::set<QWidget*> reached;
    for (int step = 0; step < 9; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget());
    }
    EXPECT_EQ(reached, (std::set<QWidget*>{first, cancel, save}));
}

TEST_F(SheetTest, ReturnPressesADefaultButtonSetBeforeTheSheetWasCreated) {
    int saves = 0;
    QObject::connect(save, &QPushButton::clicked, &stage, [&saves] { ++saves; });
    first->setAutoDefault(false);
    present();
    first->setFocus();
    EXPECT_TRUE(save->isDefault());
    EXPECT_FALSE(cancel->isDefault());
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(saves, 1);
}

TEST_F(SheetTest, EscapeClosesTheSheetAndCallsOnClosedOnce) {
    present();
    QTest::keyClick(sheet.data(), Qt::Key_Escape);
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(hasGone());
    EXPECT_EQ(closings, 1);
}

TEST_F(SheetTest, DismissCallsOnClosedOnce) {
    present();
    sheet->dismiss();
    sheet->dismiss();
    EXPECT_TRUE(hasGone());
    EXPECT_EQ(closings, 1);
}

TEST_F(SheetTest, WindowIsDimmedWhileBlocked) {
    const auto corner = [this] {
        return stage.grab().toImage().pixelColor(3, 495).lightness();
    };
    const int clear = corner();
    present();
    EXPECT_LT(corner(), clear - 30);
    sheet->dismiss();
    EXPECT_TRUE(test::waitFor([&] { return corner() == clear; }));
}

TEST_F(SheetTest, ShadeFadesOutAfterClosingAndLetsClicksThrough) {
    Theme::shared().pinReducedMotion(false);
    present();
    const QPointer<QWidget> shade = stage.childAt(3, 495);
    ASSERT_NE(shade, nullptr);
    bool outlastsTheSheet = false;
    QObject::connect(sheet, &QObject::destroyed, &stage,
                     [&] { outlastsTheSheet = shade != nullptr; });
    sheet->dismiss();
    EXPECT_NE(stage.childAt(3, 495), shade);
    EXPECT_TRUE(hasGone());
    EXPECT_TRUE(outlastsTheSheet);
    EXPECT_TRUE(test::waitFor([&] { return shade == nullptr; }));
}

TEST_F(SheetTest, ShadeFollowsTheSizeOfTheWindow) {
    present();
    const int dimmed = stage.grab().toImage().pixelColor(3, 495).lightness();
    stage.resize(760, 560);
    EXPECT_TRUE(test::waitFor(
        [&] { return stage.grab().toImage().pixelColor(757, 557).lightness() == dimmed; }));
}

TEST_F(SheetTest, ShapeIsMaskedWithoutCompositing) {
    Theme::shared().pinCompositing(false);
    present();
    EXPECT_EQ(sheet->size(), QSize(460, 640));
    EXPECT_FALSE(sheet->mask().isEmpty());
    EXPECT_FALSE(sheet->mask().contains(QPoint(0, 0)));
    EXPECT_TRUE(sheet->mask().contains(QPoint(230, 0)));
    EXPECT_TRUE(sheet->mask().contains(QPoint(0, 320)));
}

TEST_F(SheetTest, CastsAShadowWithCompositing) {
    Theme::shared().pinCompositing(true);
    present();
    EXPECT_TRUE(sheet->mask().isEmpty());
    EXPECT_TRUE(sheet->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_GT(sheet->width(), 460);
}

// On a system with native sheets, the system positions the sheet and separates it from the window.
TEST_F(SheetTest, NativeSheetDrawsNoShadowOrShade) {
    Theme::shared().pinSystemSheets(true);
    Theme::shared().pinCompositing(true);
    Theme::shared().pinReducedMotion(false);
    const QImage before = stage.grab().toImage();
    present(QSize(400, 300));
    EXPECT_EQ(sheet->windowType(), Qt::Sheet);
    EXPECT_FALSE(sheet->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->size(), QSize(400, 300)) << "no room for a shadow";
    EXPECT_FALSE(sheet->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_TRUE(sheet->mask().isEmpty());
    EXPECT_EQ(stage.childAt(3, 495), nullptr) << "a veil";
    EXPECT_EQ(stage.grab().toImage(), before);
    EXPECT_EQ(sheet->grab().toImage().pixelColor(0, 0), Theme::shared().color(Role::window));
    const QPoint place = sheet->pos();
    stage.move(60, 70);
    stage.resize(760, 560);
    EXPECT_TRUE(test::waitFor([this] { return stage.size() == QSize(760, 560); }));
    EXPECT_EQ(sheet->pos(), place) << "moved by itself";
    sheet->dismiss();
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(hasGone());
}

TEST_F(SheetTest, SlidesIntoPlaceUnlessMotionIsReduced) {
    Theme::shared().pinReducedMotion(false);
    stage.move(20, 30);
    present(QSize(400, 300));
    EXPECT_TRUE(test::waitFor([this] { return sheet->cardGeometry().topLeft() == placeFor(400); }));
}

TEST_F(SheetTest, IsDestroyedWithTheWindow) {
    auto* window = new QWidget;
    window->show();
    QPointer<Sheet> hanging = new Sheet(window, new QWidget, QSize(200, 200));
    hanging->present();
    delete window;
    EXPECT_EQ(hanging, nullptr);
}

// The blocked window receives no keys, so the sheet must handle the window's shortcuts, for example
// the one that quits the program.
TEST_F(SheetTest, WindowShortcutsWorkInTheSheet) {
    QAction quit;
    quit.setShortcut(QKeySequence("Ctrl+Q"));
    int quits = 0;
    QObject::connect(&quit, &QAction::triggered, &quit, [&quits] { ++quits; });
    stage.addAction(&quit);
    present();
    QTest::keyClick(sheet->windowHandle(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits, 1);
    sheet->dismiss();
    EXPECT_TRUE(hasGone());
    stage.activateWindow();
    EXPECT_TRUE(test::waitForWindowActive(&stage));
    QTest::keyClick(stage.windowHandle(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quits, 2);
}

} // namespace
} // namespace glidemap
