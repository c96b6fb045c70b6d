#include "ui/controls/announcement.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>
#include <vector>

namespace glidemap {
namespace {

struct Shown {
    QObject* widget;
    QAccessible::Role role;
    QString name;
};

std::vector<Shown>& shown() {
    static std::vector<Shown> all;
    return all;
}

void record(QAccessibleEvent* event) {
    if (event->type() == QAccessible::ObjectShow) {
        const QAccessibleInterface* const seen = event->accessibleInterface();
        shown().push_back({event->object(), seen->role(), seen->text(QAccessible::Name)});
    }
}

class AnnouncementTest : public testing::Test {
protected:
    AnnouncementTest() {
        window.show();
        QAccessible::setActive(true);
        previous = QAccessible::installUpdateHandler(record);
        shown().clear();
    }
    ~AnnouncementTest() override {
        QAccessible::installUpdateHandler(previous);
        QAccessible::setActive(false);
    }

    QWidget window;
    QWidget control{&window};
    QAccessible::UpdateHandler previous = nullptr;
};

TEST_F(AnnouncementTest, IsANotificationInTheWindow) {
    announce(control, "Recorded");
    ASSERT_FALSE(shown().empty());
    EXPECT_EQ(shown().back().role, QAccessible::Notification);
    EXPECT_EQ(shown().back().name, "Recorded");
    EXPECT_EQ(shown().back().widget->parent(), &window);
}

TEST_F(AnnouncementTest, WindowHasOneNotification) {
    announce(control, "One");
    QObject* const first = shown().back().widget;
    announce(window, "Two");
    EXPECT_EQ(shown().back().widget, first);
    EXPECT_EQ(shown().back().name, "Two");
}

TEST_F(AnnouncementTest, NothingHappensWithoutAssistiveTechnology) {
    QAccessible::setActive(false);
    announce(control, "Unheard");
    EXPECT_TRUE(shown().empty());
    EXPECT_EQ(window.children(), QObjectList{&control});
}

} // namespace
} // namespace glidemap
