#include "app/update_outcome.h"

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
