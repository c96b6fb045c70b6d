#include "platform/linux/shell/linux_notes.h"

#include <algorithm>
#include <utility>

namespace glidemap {

LinuxNotes::LinuxNotes(std::unique_ptr<InputNodes> inputNodes, const AccessPrompt& accessPrompt,
                       DesktopSession desktopSession)
    : nodes(std::move(inputNodes)), prompt(accessPrompt), session(std::move(desktopSession)) {}

std::string LinuxNotes::missingAccess(const Lang& lang) const {
    const std::string missing = missingNodes(lang);
    return missing.empty() || !prompt.hasFailed() ? missing : missing + "\n" + byHand(lang);
}

std::string LinuxNotes::missingNodes(const Lang& lang) const {
    const bool mayRead = std::ranges::all_of(
        nodes->touchpads(), [&](const std::string& node) { return nodes->mayRead(node); });
    const bool mayType = nodes->mayMakeDevices();
    if (!mayRead && !mayType) {
        return lang.choose("Glidemap has no access to the touchpad and the virtual keyboard.",
                           "Glidemap 没有访问触控板和虚拟键盘的权限。");
    }
    if (!mayRead) {
        return lang.choose("Glidemap has no access to the touchpad.",
                           "Glidemap 没有访问触控板的权限。");
    }
    return mayType ? std::string()
                   : lang.choose("Glidemap has no access to the virtual keyboard.",
                                 "Glidemap 没有访问虚拟键盘的权限。");
}

std::string LinuxNotes::byHand(const Lang& lang) const {
    const std::string program = prompt.grantingProgram();
    if (program.empty()) {
        return lang.choose(
            "Access cannot be granted, because Glidemap is not installed for all "
            "users. Install the Glidemap package.",
            "Glidemap 不是为所有用户安装的，因此无法授予权限。请安装 Glidemap 软件包。");
    }
    return lang.choose("The request for access failed or was denied. To grant access, run in a "
                       "terminal: sudo ",
                       "权限请求失败或被拒绝。请在终端中运行：sudo ") +
           program;
}

std::string LinuxNotes::accessButton(const Lang& lang) const {
    return lang.choose("Asks for an administrator password, then grants access to the touchpad and "
                       "a virtual keyboard",
                       "输入管理员密码后，授予 Glidemap 访问触控板和虚拟键盘的权限");
}

std::string LinuxNotes::launchAtLogin(const Lang& lang) const {
    return lang.choose("Starts when you log in to this desktop", "登录此桌面时自动启动");
}

std::string LinuxNotes::systemGesture(GestureType gesture, const Lang& lang) const {
    return desktopGestureNote(gesture, session, lang);
}

void LinuxNotes::accessMayHaveChanged() {
    observers.announceWillChange();
    observers.announceDidChange();
}

} // namespace glidemap
