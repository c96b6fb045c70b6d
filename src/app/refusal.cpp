#include "app/refusal.h"

namespace glidemap {

AlertText unansweredText(const Lang& lang) {
    return told(
        lang.choose("Glidemap does not answer", "Glidemap 没有响应"),
        lang.choose("It is running already, but does not show its window. Log out and in again, or "
                    "end it and start it anew.",
                    "它已在运行，但无法显示窗口。请注销后重新登录，或结束它再重新启动。"),
        lang);
}

AlertText withoutLockText(const Lang& lang) {
    return told(
        lang.choose("Glidemap could not start", "Glidemap 无法启动"),
        lang.choose("It cannot tell whether it is running already: its runtime folder cannot be "
                    "written.",
                    "无法判断它是否已在运行：其运行时文件夹不可写。"),
        lang);
}

} // namespace glidemap
