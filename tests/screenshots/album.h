// A folder of pictures with a page that shows them all.
//
// Thread:  the main thread.
// Errors:  a picture that shows nothing, or that cannot be written, is told on standard error and
//          counted.
#pragma once

#include "screenshots/scene.h"

#include <QImage>
#include <QSize>
#include <filesystem>
#include <string>
#include <vector>

namespace glidemap::screenshots {

class Album {
public:
    // The names of pictures with more than one pixel for a point say so.
    Album(std::filesystem::path folder, double pixelsForAPoint);

    void add(const Scene& scene, const Variant& variant);

    // The pictures, each at one and at two pixels for a point.
    void writePage();

    int failures() const { return failed; }

private:
    struct Entry {
        std::string group;
        std::string scene;
        std::string caption;
        std::string variant;
        std::string path; // below the folder, without its ending
        QSize points;
    };

    void keep(const QImage& picture, const std::string& path);
    void fail(const std::string& path, const char* why);
    std::string figure(const Entry& entry);

    std::filesystem::path folder;
    std::string ending;
    std::vector<Entry> entries;
    int failed = 0;
};

} // namespace glidemap::screenshots
