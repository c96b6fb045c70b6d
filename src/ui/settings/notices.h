// The notices above the list: a newer version, a missing permission, a missing desktop helper, and
// errors of services. Each notice is visible only while it applies, with a separator line below it.
//
// Thread:  the main thread.
// Owner:   the settings view, which sets the content.
// Errors:  none.
#pragma once

#include "core/lang.h"
#include "ui/controls/notice.h"
#include "ui/settings/desktop_helper.h"

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

class QVBoxLayout;

namespace glidemap {

class Notices : public QWidget {
public:
    struct Content {
        std::optional<std::string> latestVersion;
        std::optional<std::string> currentVersion;
        bool isTrusted = true;
        std::string missingAccess;    // shown as a second line; may be empty
        std::string accessButtonHelp; // may be empty
        std::optional<std::string> deviceError;
        std::optional<std::string> loginItemError;
        DesktopHelper::State desktopHelper = DesktopHelper::State::notNeeded;
        std::optional<std::string> desktopHelperError;
    };

    explicit Notices(QWidget* parent = nullptr);

    void display(const Content& content, const Lang& lang);

    // Called when the user clicks the button of a notice.
    std::function<void()> onDownload;
    std::function<void()> onOpenSystemSettings;
    std::function<void()> onInstallHelper;

private:
    // A notice with the separator line below it.
    struct Section {
        QWidget* whole;
        Notice* notice;
    };

    Section addSection(const char* name, const Notice::Look& look);
    static void showText(const Section& section, const std::optional<std::string>& text);
    void showUpdate(const Content& content, const Lang& lang) const;
    void showPermission(const Content& content, const Lang& lang) const;
    void showDesktopHelper(const Content& content, const Lang& lang) const;

    QVBoxLayout* stack;
    Section newVersion;
    Section permission;
    Section deviceError;
    Section loginItemError;
    Section desktopHelper;
};

} // namespace glidemap
