#include "picture.h"

#include "x_reply.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QImage>
#include <cstring>
#include <set>

namespace glidemap::application {

namespace {

constexpr std::uint32_t allPlanes = 0xFFFFFFFF;
constexpr std::uint32_t opaque = 0xFF000000;

} // namespace

Picture::Picture(const XDisplay& display, const Rectangle& area)
    : width(area.width), height(area.height) {
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(
        display.connection(),
        xcb_get_image(display.connection(), XCB_IMAGE_FORMAT_Z_PIXMAP, display.root(),
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height),
                      allPlanes),
        nullptr));
    if (reply == nullptr) {
        ADD_FAILURE() << "the screen cannot be read at " << area.x << ", " << area.y;
        return;
    }
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
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
    width = image.width();
    height = image.height();
    for (int row = 0; row < height; ++row) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(row));
        pixels.insert(pixels.end(), line, line + width);
    }
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
    const QImage image(reinterpret_cast<const unsigned char*>(pixels.data()), width, height,
                       QImage::Format_RGB32);
    EXPECT_TRUE(image.save(QString::fromStdString(file.string()))) << file;
}

} // namespace glidemap::application
