// A folder of pictures with a page that shows all of them.
//
// Thread:  the main thread.
// Errors:  a picture that is blank or missing, or a file that cannot be written, is reported on
//          standard error and counted.
#pragma once

#include "screenshots/scene.h"

#include <QImage>
#include <QSize>
#include <filesystem>
#include <string>
#include <vector>

namespace glidemap::test {

class Album {
public:
    // File names include the scale if it is above 1.
    Album(std::filesystem::path folder, double pixelsForAPoint);

    void add(const Scene& scene, const PictureVariant& variant);

    // Writes the page, which shows each picture at scales 1 and 2.
    void writePage();

    int failures() const { return failed; }

private:
    struct Entry {
        std::string group;
        std::string scene;
        std::string caption;
        std::string variant;
        std::string path; // within the folder, without the extension
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

} // namespace glidemap::test
