#include "kit/temporary_folder.h"
#include "platform/qt/qt_window_geometry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace glidemap {

static void PrintTo(const WindowGeometry& geometry, std::ostream* stream) {
    *stream << geometry.width << "×" << geometry.height << " at " << geometry.x << ", "
            << geometry.y << (geometry.maximized ? ", maximized" : "");
}

namespace {

namespace fs = std::filesystem;

class QtWindowGeometryTest : public testing::Test {
protected:
    test::TemporaryFolder temporary;
    const fs::path file = temporary.path() / "glidemap" / "window.ini";
};

TEST_F(QtWindowGeometryTest, FirstLaunchFindsNoGeometryAndCreatesNoFile) {
    EXPECT_EQ(QtWindowGeometry(file).read(), std::nullopt);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(QtWindowGeometryTest, GeometryPersistsUntilTheNextLaunch) {
    const WindowGeometry rows[] = {
        {10, 20, 720, 520, false}, {-1500, -3, 680, 480, true}, {0, 0, 1, 1, false}};
    for (const WindowGeometry& geometry : rows) {
        QtWindowGeometry(file).write(geometry);
        EXPECT_EQ(QtWindowGeometry(file).read(), geometry);
    }
}

TEST_F(QtWindowGeometryTest, InvalidGeometryIsIgnored) {
    const std::string rows[] = {
        "",
        "[General]\nx=1\ny=2\nwidth=700\n",
        "[General]\nx=one\ny=2\nwidth=700\nheight=500\n",
        "[General]\nx=1\ny=2\nwidth=0\nheight=500\n",
        "[General]\nx=1\ny=2\nwidth=700\nheight=-500\n",
        "[General]\nx=1, 5\ny=2\nwidth=700\nheight=500\n",
        "[General]\nx=1\ny=99999999999999999999\nwidth=700\nheight=500\n",
        "[General]\nx=@Rect(1 2 3 4)\ny=2\nwidth=700\nheight=500\n",
        std::string("\0\xff\xfe[[[", 6),
    };
    for (const std::string& content : rows) {
        temporary.write("glidemap/window.ini", content);
        EXPECT_EQ(QtWindowGeometry(file).read(), std::nullopt) << content;
    }
}

TEST_F(QtWindowGeometryTest, UnchangedGeometryIsNotWritten) {
    QtWindowGeometry(file).write({10, 20, 720, 520, false});
    const auto written = fs::last_write_time(file);
    QtWindowGeometry(file).write({10, 20, 720, 520, false});
    EXPECT_EQ(fs::last_write_time(file), written);
}

TEST_F(QtWindowGeometryTest, WriteErrorIsIgnored) {
    temporary.write("glidemap", "a file where the folder would be");
    QtWindowGeometry(file).write({1, 2, 700, 500, false});
    EXPECT_EQ(QtWindowGeometry(file).read(), std::nullopt);
}

} // namespace
} // namespace glidemap
