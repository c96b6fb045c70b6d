#include "app/alert_texts.h"

#include <variant>

namespace glidemap {

namespace {

AlertText failed(const Lang& lang) {
    return informationalAlert(
        lang.choose("Update check failed", "检查更新失败"),
        lang.choose("Could not reach the update server. Check your network and try again.",
                    "无法连接更新服务器，请检查网络后重试。"),
        lang);
}

AlertText upToDate(const std::string& current, const Lang& lang) {
    return informationalAlert(lang.choose("You're up to date", "已是最新版本"),
                              lang.choose("Glidemap v" + current + " is the latest version.",
                                          "Glidemap v" + current + " 已是最新版本。"),
                              lang);
}

AlertText newVersion(const std::string& version, const std::string& current, const Lang& lang) {
    return {
        lang.choose("New version available", "发现新版本"),
        lang.choose("Glidemap v" + version + " is available (you have v" + current + ").",
                    "Glidemap v" + version + " 已发布（当前 v" + current + "）。"),
        {lang.choose("Download", "前往下载"), lang.choose("Later", "稍后")},
    };
}

} // namespace

AlertText unansweredText(const Lang& lang) {
    return informationalAlert(
        lang.choose("Glidemap is not responding", "Glidemap 没有响应"),
        lang.choose(
            "Glidemap is already running, but its window cannot be shown. End it and start "
            "it again, or log out and back in.",
            "Glidemap 已在运行，但无法显示窗口。请结束该程序后重新启动，或注销后重新登录。"),
        lang);
}

AlertText withoutLockText(const Lang& lang) {
    return informationalAlert(
        lang.choose("Glidemap could not start", "Glidemap 无法启动"),
        lang.choose(
            "Glidemap cannot write to its runtime folder, so it cannot check whether it is already "
            "running. Check the folder's permissions.",
            "Glidemap 无法写入运行时文件夹，因此无法确认是否已在运行。请检查该文件夹的权限。"),
        lang);
}

AlertText noStatusBarText(const Lang& lang) {
    return informationalAlert(
        lang.choose("This desktop has no status bar", "此桌面没有状态栏"),
        lang.choose(
            "Glidemap keeps running in the background. To open its settings, start it again. To "
            "quit, press Ctrl+Q in the settings window.",
            "Glidemap 会在后台继续运行。再次启动即可打开设置；在设置窗口中按 Ctrl+Q 可退出。"),
        lang);
}

AlertText updateOutcome(const UpdateResult& result,
                        const std::optional<std::string>& currentVersion, const Lang& lang) {
    if (std::holds_alternative<UpdateError>(result)) {
        return failed(lang);
    }
    const auto& version = std::get<std::optional<std::string>>(result);
    const std::string current = currentVersion.value_or("?");
    return version ? newVersion(*version, current, lang) : upToDate(current, lang);
}

bool offersDownload(const UpdateResult& result) {
    const auto* version = std::get_if<std::optional<std::string>>(&result);
    return version != nullptr && version->has_value();
}

} // namespace glidemap
