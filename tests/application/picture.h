// A screenshot of a part of the screen.
//
// Units:   pixels.
// Errors:  a screen that cannot be read fails the test and returns an empty picture.
#pragma once

#include "x_display.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace glidemap::test {

class Picture {
public:
    Picture(const XDisplay& display, const Rectangle& area);
    explicit Picture(const std::filesystem::path& file);

    int width() const { return _width; }
    int height() const { return _height; }

    // Returns a copy of the area, which must lie within the picture.
    Picture part(const Rectangle& area) const;

    std::size_t countOfColours() const;

    // Returns the number of pixels with this colour, within a small tolerance.
    std::size_t countOf(std::uint32_t colour) const;

    // Returns the number of pixels that differ from another picture of the same size.
    std::size_t differences(const Picture& other) const;

    void save(const std::filesystem::path& file) const;

private:
    Picture() = default;

    int _width = 0;
    int _height = 0;
    std::vector<std::uint32_t> pixels;
};

} // namespace glidemap::test
