#include "screenshots/album.h"

#include "screenshots/photograph.h"

#include <QString>
#include <fstream>
#include <iostream>
#include <utility>

namespace glidemap::test {

namespace {

constexpr const char* scale2Suffix = "@2x.png";

constexpr const char* pageTop = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Glidemap: every window and state</title>
<style>
body { font: 15px/1.5 Inter, "Noto Sans", sans-serif; margin: 32px; background: #eceef1; color: #1d1f23; }
nav a { margin-right: 16px; }
h2 { margin: 40px 0 4px; }
h3 { margin: 24px 0 8px; font-weight: 600; }
.states { display: flex; flex-wrap: wrap; gap: 20px; align-items: flex-start; }
figure { margin: 0; }
figure img { display: block; max-width: min(100%, 720px); height: auto; box-shadow: 0 2px 14px #0003; }
figcaption { font-size: 13px; margin-top: 6px; color: #555b66; }
</style>
</head>
<body>
<h1>Glidemap: every window and state</h1>
)";

std::string escaped(const std::string& text) {
    return QString::fromStdString(text).toHtmlEscaped().toStdString();
}

std::string anchorOf(const std::string& group) {
    return QString::fromStdString(group).toLower().replace(' ', '-').toStdString();
}

std::string inWords(const PictureVariant& variant) {
    return std::string(variant.language == "zh" ? "Chinese" : "English") + ", " +
           (variant.scheme == ColorScheme::light ? "light" : "dark");
}

} // namespace

Album::Album(std::filesystem::path where, double pixelsForAPoint)
    : folder(std::move(where)), ending(pixelsForAPoint > 1 ? scale2Suffix : ".png") {}

void Album::add(const Scene& scene, const PictureVariant& variant) {
    const std::string path = anchorOf(scene.group) + "/" + scene.name + "-" + variant.suffix();
    const QImage picture = scene.paint();
    keep(picture, path);
    entries.push_back({.group = scene.group,
                       .scene = scene.name,
                       .caption = scene.caption,
                       .variant = inWords(variant),
                       .path = path,
                       .points = picture.deviceIndependentSize().toSize()});
}

void Album::keep(const QImage& picture, const std::string& path) {
    if (isBlank(picture)) {
        fail(path, "shows nothing");
        return;
    }
    const std::filesystem::path file = folder / (path + ending);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    if (error || !picture.save(QString::fromStdString(file.string()), "PNG")) {
        fail(path, "cannot be written");
    }
}

void Album::fail(const std::string& path, const char* why) {
    std::cerr << "glidemap-screenshots: " << path << ending << ' ' << why << '\n';
    ++failed;
}

std::string Album::figure(const Entry& entry) {
    for (const char* each : {".png", scale2Suffix}) {
        if (!std::filesystem::exists(folder / (entry.path + each))) {
            fail(entry.path, "is missing for the page");
        }
    }
    const std::string plain = escaped(entry.path) + ".png";
    const std::string sharp = escaped(entry.path) + scale2Suffix;
    return "<figure><a href=\"" + sharp + "\"><img loading=\"lazy\" src=\"" + plain +
           "\" srcset=\"" + plain + " 1x, " + sharp + " 2x\" width=\"" +
           std::to_string(entry.points.width()) + "\" height=\"" +
           std::to_string(entry.points.height()) + "\" alt=\"" + escaped(entry.caption) +
           "\"></a><figcaption>" + entry.variant + " · <a href=\"" + plain +
           "\">1×</a> · <a href=\"" + sharp + "\">2×</a></figcaption></figure>\n";
}

void Album::writePage() {
    std::string links;
    std::string body;
    const Entry* before = nullptr;
    for (const Entry& entry : entries) {
        const bool newGroup = before == nullptr || before->group != entry.group;
        const bool newScene = newGroup || before->scene != entry.scene;
        body += before != nullptr && newScene ? "</div>\n" : "";
        if (newGroup) {
            const std::string anchor = anchorOf(entry.group);
            links += "<a href=\"#" + anchor + "\">" + escaped(entry.group) + "</a>\n";
            body += "<h2 id=\"" + anchor + "\">" + escaped(entry.group) + "</h2>\n";
        }
        body += newScene ? "<h3>" + escaped(entry.caption) + "</h3>\n<div class=\"states\">\n" : "";
        body += figure(entry);
        before = &entry;
    }
    std::ofstream page(folder / "index.html");
    page << pageTop << "<nav>\n" << links << "</nav>\n" << body << "</div>\n</body>\n</html>\n";
    page.close();
    if (!page) {
        fail("index.html", "cannot be written");
    }
}

} // namespace glidemap::test
