#include "ui/settings/notices.h"

#include "ui/controls/separator.h"
#include "ui/theme/text.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace glidemap {

namespace {

const Notice::Look updateLook{.symbol = "sparkles",
                              .symbolRole = Role::blue,
                              .ground = Role::blue,
                              .groundOpacity = 0.1,
                              .button = Notice::Button::prominent,
                              .buttonAtEnd = false};
const Notice::Look permissionLook{.symbol = "exclamationmark.triangle.fill",
                                  .symbolRole = Role::orange,
                                  .ground = Role::orange,
                                  .groundOpacity = 0.12,
                                  .button = Notice::Button::plain};
const Notice::Look deviceErrorLook{.symbol = {}, .textRole = Role::red};
const Notice::Look loginItemErrorLook{.symbol = {}, .textRole = Role::orange};
const Notice::Look desktopHelperLook{.symbol = "puzzlepiece",
                                     .symbolRole = Role::purple,
                                     .ground = Role::purple,
                                     .groundOpacity = 0.1,
                                     .button = Notice::Button::plain};

std::optional<std::string> warning(const std::optional<std::string>& error) {
    return error ? std::optional("⚠️ " + *error) : std::nullopt;
}

std::string textOf(DesktopHelper::State state, const std::string& error, const Lang& lang) {
    using State = DesktopHelper::State;
    switch (state) {
    case State::notNeeded:
        break;
    case State::missing:
        return lang.choose(
            "On GNOME, bindings for a specific app need a small extension that "
            "reports the active app.",
            "在 GNOME 中，仅对指定 App 生效的绑定需要一个小扩展来识别当前使用的 App。");
    case State::installing:
        return lang.choose("Installing the extension…", "正在安装扩展…");
    case State::atNextLogin:
        return lang.choose("The extension is installed. Log out and back in to activate it.",
                           "扩展已安装，注销并重新登录后生效。");
    case State::failed:
        return lang.choose("Could not install the extension: ", "无法安装扩展：") + error;
    }
    return {};
}

bool canInstall(DesktopHelper::State state) {
    return state == DesktopHelper::State::missing || state == DesktopHelper::State::failed;
}

std::function<void()> notifying(const std::function<void()>& listener) {
    return [&listener] {
        if (listener) {
            listener();
        }
    };
}

} // namespace

Notices::Notices(QWidget* parent)
    : QWidget(parent), stack(new QVBoxLayout(this)),
      newVersion(addSection("updateNotice", updateLook)),
      permission(addSection("permissionNotice", permissionLook)),
      deviceError(addSection("deviceError", deviceErrorLook)),
      loginItemError(addSection("loginItemError", loginItemErrorLook)),
      desktopHelper(addSection("desktopHelperNotice", desktopHelperLook)) {
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    newVersion.notice->onButton = notifying(onDownload);
    permission.notice->onButton = notifying(onOpenSystemSettings);
    desktopHelper.notice->onButton = notifying(onInstallHelper);
}

Notices::Section Notices::addSection(const char* name, const Notice::Look& look) {
    auto* whole = new QWidget(this);
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* notice = new Notice(look, whole);
    notice->setObjectName(name);
    column->addWidget(notice);
    column->addWidget(new Separator(whole));
    stack->addWidget(whole);
    whole->hide();
    return {whole, notice};
}

void Notices::display(const Content& content, const Lang& lang) {
    showUpdate(content, lang);
    showPermission(content, lang);
    showText(deviceError, warning(content.deviceError));
    showText(loginItemError, warning(content.loginItemError));
    showDesktopHelper(content, lang);
}

void Notices::showText(const Section& section, const std::optional<std::string>& text) {
    if (text && section.notice->text() != toQt(*text)) {
        section.notice->setText(toQt(*text));
        section.notice->setAccessibleName(toQt(*text));
    }
    section.whole->setVisible(text.has_value());
}

void Notices::showUpdate(const Content& content, const Lang& lang) const {
    std::optional<std::string> text;
    if (content.latestVersion) {
        const std::string& latest = *content.latestVersion;
        const std::string current = content.currentVersion.value_or("?");
        text = lang.choose("Version " + latest + " is available (you have " + current + ").",
                           "新版本 v" + latest + " 已发布（当前 v" + current + "）。");
    }
    newVersion.notice->setButtonText(toQt(lang.choose("Download from Website", "前往官网下载")));
    showText(newVersion, text);
}

void Notices::showPermission(const Content& content, const Lang& lang) const {
    const std::string text =
        lang.choose("Accessibility permission is required to send keystrokes and intercept clicks.",
                    "需要「辅助功能」权限才能模拟按键和拦截点击。");
    permission.notice->setButtonText(toQt(lang.choose("Open System Settings", "打开系统设置")));
    permission.notice->button()->setToolTip(toQt(content.accessButtonHelp));
    permission.notice->button()->setAccessibleDescription(toQt(content.accessButtonHelp));
    permission.notice->setSecondLine(toQt(content.missingAccess));
    showText(permission, content.isTrusted ? std::nullopt : std::optional(text));
}

void Notices::showDesktopHelper(const Content& content, const Lang& lang) const {
    const auto state = content.desktopHelper;
    const std::string text = textOf(state, content.desktopHelperError.value_or("?"), lang);
    desktopHelper.notice->setButtonText(toQt(lang.choose("Install Extension", "安装扩展")));
    desktopHelper.notice->button()->setVisible(canInstall(state));
    showText(desktopHelper, text.empty() ? std::nullopt : std::optional(text));
}

} // namespace glidemap
