#include "app/update_alert.h"

#include <QLabel>
#include <QPushButton>
#include <variant>

namespace glidemap {

namespace {

QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

UpdateAlertText failed(const Lang& lang) {
    return {
        lang.choose("Update check failed", "检查更新失败"),
        lang.choose("Could not reach the update server. Check your network and try again.",
                    "无法连接更新服务器，请检查网络后重试。"),
        {lang.choose("OK", "好")},
    };
}

UpdateAlertText upToDate(const std::string& current, const Lang& lang) {
    return {
        lang.choose("You're up to date", "已是最新版本"),
        lang.choose("Glidemap v" + current + " is the latest version.",
                    "Glidemap v" + current + " 已是最新版本。"),
        {lang.choose("OK", "好")},
    };
}

UpdateAlertText newVersion(const std::string& version, const std::string& current,
                           const Lang& lang) {
    return {
        lang.choose("New version available", "发现新版本"),
        lang.choose("Glidemap v" + version + " is available (you have v" + current + ").",
                    "Glidemap v" + version + " 已发布（当前 v" + current + "）。"),
        {lang.choose("Download", "前往下载"), lang.choose("Later", "稍后")},
    };
}

} // namespace

UpdateAlertText updateAlertText(const UpdateResult& result,
                                const std::optional<std::string>& currentVersion,
                                const Lang& lang) {
    if (std::holds_alternative<UpdateError>(result)) {
        return failed(lang);
    }
    const auto& version = std::get<std::optional<std::string>>(result);
    const std::string current = currentVersion.value_or("?");
    return version ? newVersion(*version, current, lang) : upToDate(current, lang);
}

UpdateAlert::UpdateAlert(const UpdateAlertText& text, QWidget* parent) : QMessageBox(parent) {
    setObjectName("updateAlert");
    setWindowTitle("Glidemap");
    setIcon(NoIcon);
    setTextFormat(Qt::PlainText);
    setText(toQt(text.message));
    setInformativeText(toQt(text.informative));
    // A version is a server's word: it is shown and never taken for markup.
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setTextFormat(Qt::PlainText);
    }
    for (const std::string& title : text.buttons) {
        QPushButton* button = addButton(toQt(title), first == nullptr ? AcceptRole : RejectRole);
        if (first == nullptr) {
            first = button;
            button->setProperty("prominent", true);
            setDefaultButton(button);
        }
        setEscapeButton(button); // the last one is the one that changes nothing
    }
}

} // namespace glidemap
