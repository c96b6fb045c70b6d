// The program's place in the status bar: an icon with a menu.
//
// It is put there when there is a bar, be it minutes after the start: a tray that the toolkit has
// once looked for in vain it never looks for again, so it is not asked before.
//
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  without a bar there is an item that nobody sees.
#pragma once

#include "app/status_bar.h"
#include "core/observable.h"

#include <QMenu>
#include <functional>
#include <memory>

class QIcon;
class QSystemTrayIcon;

namespace glidemap {

class StatusItem {
public:
    // What the item looks like in this kind of bar.
    using Icon = std::function<QIcon(StatusBar::Kind)>;

    StatusItem(std::shared_ptr<StatusBar> statusBar, Icon templateIcon);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem();

    QMenu& menu() { return statusMenu; }

    // Called when the user has chosen the item itself and not its menu.
    std::function<void()> onActivate;

    // Whether it has found its place.
    bool isShown() const { return item != nullptr; }

    // Gives it the icon anew, after that has changed.
    void redraw();

private:
    void appear();

    std::shared_ptr<StatusBar> bar;
    Icon icon;
    QMenu statusMenu;
    std::unique_ptr<QSystemTrayIcon> item; // goes before its menu
    StatusBar::Kind kind = StatusBar::Kind::none;
    Subscription toBar;
};

} // namespace glidemap
