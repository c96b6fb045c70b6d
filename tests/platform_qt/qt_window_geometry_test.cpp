#include "kit/temporary_folder.h"
#include "platform/qt/qt_window_geometry.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

class QtWindowGeometryTest : public testing::Test {
protected:
    QtWindowGeometry store() const { return QtWindowGeometry(file); }

    test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / "glidemap" / "window.ini";
};

TEST_F(QtWindowGeometryTest, AFirstLaunchRemembersNothingAndWritesNothing) {
    EXPECT_EQ(store().read(), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(QtWindowGeometryTest, WhatIsWrittenIsThereAtTheNextLaunch) {
    for (const WindowGeometry& geometry :
         {WindowGeometry{10, 20, 720, 520, false}, WindowGeometry{-1900, -5, 900, 700, true}}) {
        store().write(geometry);
        EXPECT_EQ(store().read(), geometry);
    }
}

TEST_F(QtWindowGeometryTest, TheSamePlaceIsNotWrittenAgain) {
    store().write({10, 20, 720, 520, false});
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    const auto written = std::filesystem::last_write_time(file);
    store().write({10, 20, 720, 520, false});
    EXPECT_EQ(std::filesystem::last_write_time(file), written);
}

TEST_F(QtWindowGeometryTest, WhatMakesNoSenseIsNothing) {
    for (const char* text :
         {"", "nonsense", "[General]\nx=1\ny=2\nwidth=3\n",
          "[General]\nx=1\ny=2\nwidth=wide\nheight=4\n", "[General]\nx=1\ny=2\nwidth=0\nheight=4\n",
          "[General]\nx=1\ny=2\nwidth=3\nheight=-4\n",
          "[General]\nx=1\ny=99999999999\nwidth=3\nheight=4\n"}) {
        folder.write("glidemap/window.ini", text);
        EXPECT_EQ(store().read(), std::nullopt) << text;
    }
}

} // namespace
} // namespace glidemap
