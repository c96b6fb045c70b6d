#include "app/no_status_bar.h"

namespace glidemap {

AlertText noStatusBarText(const Lang& lang) {
    return informationalAlert(
        lang.choose("This desktop has no status bar", "此桌面没有状态栏"),
        lang.choose(
            "Glidemap keeps running in the background. To open its settings, start it again. To "
            "quit, press Ctrl+Q in the settings window.",
            "Glidemap 会在后台继续运行。再次启动即可打开设置；在设置窗口中按 Ctrl+Q 可退出。"),
        lang);
}

} // namespace glidemap
