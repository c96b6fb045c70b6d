#include "ui/editor/action_kind.h"

namespace glidemap {

std::string label(ActionKind kind, const Lang& lang) {
    switch (kind) {
    case ActionKind::keyboardShortcut:
        return lang.choose("Keyboard Shortcut", "键盘快捷键");
    case ActionKind::lockScreen:
        return lang.choose("Lock Screen", "锁定屏幕");
    case ActionKind::missionControl:
        return "Mission Control"; // a product name, not translated
    case ActionKind::launchApp:
        break;
    }
    return lang.choose("Open App", "打开 App");
}

} // namespace glidemap
