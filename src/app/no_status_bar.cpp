#include "app/no_status_bar.h"

namespace glidemap {

AlertText noStatusBarText(const Lang& lang) {
    return told(
        lang.choose("This desktop shows no status items", "此桌面不显示状态栏图标"),
        lang.choose("Glidemap goes on running. Start it again to open its settings; to quit it, "
                    "press Ctrl+Q in the settings window.",
                    "Glidemap 会继续运行。再次启动它即可打开设置；要退出，请在设置窗口中按 "
                    "Ctrl+Q。"),
        lang);
}

} // namespace glidemap
