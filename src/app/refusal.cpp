#include "app/refusal.h"

namespace glidemap {

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

} // namespace glidemap
