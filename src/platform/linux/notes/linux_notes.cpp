#include "platform/linux/notes/linux_notes.h"

#include <algorithm>
#include <utility>

namespace glidemap {

LinuxNotes::LinuxNotes(std::unique_ptr<InputNodes> inputNodes, const AccessPrompt& accessPrompt)
    : nodes(std::move(inputNodes)), prompt(accessPrompt) {}

std::string LinuxNotes::missingAccess(const Lang& lang) const {
    const std::string missing = missingNodes(lang);
    return missing.empty() || !prompt.hasFailed() ? missing : missing + "\n" + byHand(lang);
}

std::string LinuxNotes::missingNodes(const Lang& lang) const {
    const bool mayRead = std::ranges::all_of(
        nodes->touchpads(), [&](const std::string& node) { return nodes->mayRead(node); });
    const bool mayType = nodes->mayMakeDevices();
    if (!mayRead && !mayType) {
        return lang.choose("Missing here: access to the touchpad and to the virtual keyboard.",
                           "此处缺少：触控板和虚拟键盘的访问权限。");
    }
    if (!mayRead) {
        return lang.choose("Missing here: access to the touchpad.", "此处缺少：触控板的访问权限。");
    }
    return mayType ? std::string()
                   : lang.choose("Missing here: access to the virtual keyboard.",
                                 "此处缺少：虚拟键盘的访问权限。");
}

std::string LinuxNotes::byHand(const Lang& lang) const {
    const std::string program = prompt.grantingProgram();
    if (program.empty()) {
        return lang.choose(
            "Nothing can give access here, because Glidemap is not installed for all "
            "users. Install its package.",
            "此处无法授予权限，因为 Glidemap 未为所有用户安装。请安装它的软件包。");
    }
    return lang.choose("Access could not be asked for, or was refused. In a terminal, run: sudo ",
                       "未能请求权限，或请求被拒绝。请在终端中运行：sudo ") +
           program;
}

std::string LinuxNotes::accessButton(const Lang& lang) const {
    return lang.choose(
        "Asks for an administrator's password, and then gives access to the touchpad "
        "and to a virtual keyboard",
        "会要求输入管理员密码，然后授予触控板和虚拟键盘的访问权限");
}

std::string LinuxNotes::launchAtLogin(const Lang& lang) const {
    return lang.choose("Here: when you log in to this desktop", "在此处：登录此桌面时");
}

void LinuxNotes::accessMayHaveChanged() {
    observers.announceWillChange();
    observers.announceDidChange();
}

} // namespace glidemap
