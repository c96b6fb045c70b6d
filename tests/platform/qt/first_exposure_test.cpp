#include "platform/qt/first_exposure.h"

#include <gtest/gtest.h>

#include <QExposeEvent>
#include <QGuiApplication>
#include <QWindow>

namespace glidemap {
namespace {

TEST(FirstExposureTest, ReportsTheFirstVisibleWindowOnce) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    int reported = 0;
    const FirstExposure exposure([&reported] { ++reported; });
    QWindow hidden;
    hidden.create();
    QExposeEvent nothing{QRegion()};
    QCoreApplication::sendEvent(&hidden, &nothing);
    EXPECT_EQ(reported, 0) << "the window is not visible yet";
    QWindow first;
    first.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(reported, 1);
    QWindow second;
    second.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(reported, 1);
}

} // namespace
} // namespace glidemap
