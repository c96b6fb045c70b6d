// Tests announce() without a screen reader. What a screen reader says is tested with a real one, in
// tests/application.
#include "ui/controls/announcement.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

namespace glidemap {
namespace {

TEST(AnnouncementTest, DoesNothingWithoutAssistiveTechnology) {
    QWidget window;
    QWidget control(&window);
    window.show();
    ASSERT_FALSE(QAccessible::isActive());
    announce(control, "Unheard");
    EXPECT_EQ(window.children(), QObjectList{&control});
}

} // namespace
} // namespace glidemap
