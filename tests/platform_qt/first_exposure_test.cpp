#include "platform/qt/first_exposure.h"

#include <gtest/gtest.h>

#include <QExposeEvent>
#include <QGuiApplication>
#include <QWindow>

namespace glidemap {
namespace {

TEST(FirstExposureTest, FirstVisibleWindowIsReportedOnce) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);
    int told = 0;
    const FirstExposure exposure([&told] { ++told; });
    QWindow hidden;
    hidden.create();
    QExposeEvent nothing{QRegion()};
    QCoreApplication::sendEvent(&hidden, &nothing);
    EXPECT_EQ(told, 0) << "the window is not visible yet";
    QWindow first;
    first.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1);
    QWindow second;
    second.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace glidemap
