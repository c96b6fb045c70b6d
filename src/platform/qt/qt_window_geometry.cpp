#include "platform/qt/qt_window_geometry.h"

#include <QSettings>
#include <QString>
#include <QVariant>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* maximizedKey = "maximized";

std::optional<int> number(const QSettings& settings, const char* key) {
    bool isNumber = false;
    const int value = settings.value(key).toString().toInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

} // namespace

QtWindowGeometry::QtWindowGeometry(std::filesystem::path file) : file(std::move(file)) {}

std::optional<WindowGeometry> QtWindowGeometry::read() const {
    const QSettings settings(QString::fromStdString(file.native()), QSettings::IniFormat);
    const auto x = number(settings, "x");
    const auto y = number(settings, "y");
    const auto width = number(settings, "width");
    const auto height = number(settings, "height");
    if (!x || !y || !width || !height || *width <= 0 || *height <= 0) {
        return std::nullopt;
    }
    return WindowGeometry{*x, *y, *width, *height,
                          settings.value(maximizedKey).toString() == "true"};
}

void QtWindowGeometry::write(const WindowGeometry& geometry) {
    if (read() == geometry) {
        return;
    }
    QSettings settings(QString::fromStdString(file.native()), QSettings::IniFormat);
    settings.setValue("x", geometry.x);
    settings.setValue("y", geometry.y);
    settings.setValue("width", geometry.width);
    settings.setValue("height", geometry.height);
    settings.setValue(maximizedKey, geometry.maximized);
}

} // namespace glidemap
