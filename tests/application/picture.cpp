#include "picture.h"

#include "x_reply.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QImage>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <set>

namespace glidemap::test {

namespace {

constexpr std::uint32_t allPlanes = 0xFFFFFFFF;
constexpr std::uint32_t opaque = 0xFF000000;

bool areAlike(std::uint32_t one, std::uint32_t other) {
    constexpr int few = 4;
    for (const int shift : {0, 8, 16}) {
        const int first = static_cast<int>(one >> shift & 0xFF);
        const int second = static_cast<int>(other >> shift & 0xFF);
        if (std::abs(first - second) > few) {
            return false;
        }
    }
    return true;
}

} // namespace

Picture::Picture(const XDisplay& display, const Rectangle& area)
    : _width(area.width), _height(area.height) {
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        display.connection(),
        xcb_get_image(display.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, display.root(),
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(_width), static_cast<std::uint16_t>(_height),
                      allPlanes),
        nullptr));
    if (reply == nullptr) {
        ADD_FAILURE() << "the screen cannot be read at " << area.x << ", " << area.y;
        return;
    }
    pixels.resize(static_cast<std::size_t>(_width) * static_cast<std::size_t>(_height));
    std::memcpy(pixels.data(), xcb_get_image_data(reply.get()),
                pixels.size() * sizeof(std::uint32_t));
    for (std::uint32_t& pixel : pixels) {
        pixel |= opaque;
    }
}

Picture::Picture(const std::filesystem::path& file) {
    const QImage image =
        QImage(QString::fromStdString(file.string())).convertToFormat(QImage::Format_RGB32);
    EXPECT_FALSE(image.isNull()) << file << " is no picture";
    _width = image.width();
    _height = image.height();
    for (int row = 0; row < _height; ++row) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(row));
        pixels.insert(pixels.end(), line, line + _width);
    }
}

Picture Picture::part(const Rectangle& area) const {
    Picture picture;
    if (!Rectangle{0, 0, _width, _height}.contains(area)) {
        ADD_FAILURE() << "the picture has no part at " << area.x << ", " << area.y;
        return picture;
    }
    picture._width = area.width;
    picture._height = area.height;
    for (int row = area.y; row < area.y + area.height; ++row) {
        const auto begin = pixels.begin() + row * _width + area.x;
        picture.pixels.insert(picture.pixels.end(), begin, begin + area.width);
    }
    return picture;
}

std::size_t Picture::countOf(std::uint32_t colour) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        pixels, [colour](std::uint32_t pixel) { return areAlike(pixel, colour); }));
}

std::size_t Picture::countOfColours() const {
    return std::set<std::uint32_t>(pixels.begin(), pixels.end()).size();
}

std::size_t Picture::differences(const Picture& other) const {
    EXPECT_EQ(pixels.size(), other.pixels.size());
    std::size_t count = 0;
    for (std::size_t index = 0; index < std::min(pixels.size(), other.pixels.size()); ++index) {
        count += pixels[index] != other.pixels[index] ? 1 : 0;
    }
    return count;
}

void Picture::save(const std::filesystem::path& file) const {
    std::filesystem::create_directories(file.parent_path());
    const QImage image(reinterpret_cast<const unsigned char*>(pixels.data()), _width, _height,
                       QImage::Format_RGB32);
    EXPECT_TRUE(image.save(QString::fromStdString(file.string()))) << file;
}

} // namespace glidemap::test
