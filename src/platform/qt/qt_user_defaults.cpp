#include "platform/qt/qt_user_defaults.h"

#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <QVariant>

namespace glidemap {

namespace {

QString text(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

std::filesystem::path QtUserDefaults::standardFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::filesystem::path(folder.toStdString()) / "glidemap" / "glidemap.ini";
}

QtUserDefaults::QtUserDefaults(const std::filesystem::path& file)
    : settings(std::make_unique<QSettings>(text(file.native()), QSettings::IniFormat)) {}

QtUserDefaults::~QtUserDefaults() = default;

// This class writes only text, and Qt reads it back as text. A value of any other type was not
// written by this class.
std::optional<std::string> QtUserDefaults::string(std::string_view key) const {
    const QVariant value = settings->value(text(key));
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return value.toString().toStdString();
}

void QtUserDefaults::setString(std::string_view key, std::string_view value) {
    settings->setValue(text(key), text(value));
    settings->sync();
}

std::optional<bool> QtUserDefaults::boolean(std::string_view key) const {
    const auto stored = string(key);
    if (stored == "true") {
        return true;
    }
    return stored == "false" ? std::optional(false) : std::nullopt;
}

void QtUserDefaults::setBoolean(std::string_view key, bool value) {
    setString(key, value ? "true" : "false");
}

} // namespace glidemap
