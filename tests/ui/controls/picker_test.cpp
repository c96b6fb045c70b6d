#include "kit/qt_waiting.h"
#include "ui/controls/picker.h"
#include "ui/theme/theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace glidemap {
namespace {

QString tooltipOf(Picker& picker) {
    QToolTip::hideText(); // takes effect after a short delay
    EXPECT_TRUE(test::waitFor([] { return QToolTip::text().isEmpty(); }));
    QHelpEvent hover(QEvent::ToolTip, picker.rect().center(),
                     picker.mapToGlobal(picker.rect().center()));
    QApplication::sendEvent(&picker, &hover);
    return QToolTip::text();
}

TEST(PickerTest, TooltipShowsTheTextOnlyIfThePickerIsTooNarrow) {
    Theme::shared().applyTo(*qApp);
    const QString text = "The Extraordinarily Long-Named Presentation Suite";
    Picker picker;
    picker.addItems({"A", text});
    picker.setCurrentIndex(1);
    picker.resize(200, picker.sizeHint().height());
    picker.show();
    ASSERT_TRUE(test::waitForWindowExposed(&picker));
    EXPECT_EQ(tooltipOf(picker), text);
    picker.setCurrentIndex(0);
    EXPECT_EQ(tooltipOf(picker), "");
    picker.setCurrentIndex(1);
    picker.resize(1000, picker.height());
    EXPECT_EQ(tooltipOf(picker), "");
    picker.resize(200, picker.height());
    picker.setToolTip("Its own");
    EXPECT_EQ(tooltipOf(picker), "Its own");
}

TEST(PickerTest, MouseWheelDoesNotChangeTheChoice) {
    Picker picker;
    picker.addItems({"A", "B", "C"});
    picker.setCurrentIndex(1);
    picker.show();
    ASSERT_TRUE(test::waitForWindowExposed(&picker));
    const QPointF at = picker.rect().center();
    for (const int turn : {120, -120}) {
        QWheelEvent wheel(at, picker.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&picker, &wheel);
        EXPECT_FALSE(wheel.isAccepted()) << "the form scrolls";
        EXPECT_EQ(picker.currentIndex(), 1);
    }
}

} // namespace
} // namespace glidemap
