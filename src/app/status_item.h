// The program's item in the status bar: an icon with a menu.
//
// It is created as soon as a bar exists, possibly minutes after the start. Qt searches for a tray
// only once, so the search must not come too early.
//
// Units:   the patience in milliseconds.
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  without a bar the item is invisible, which is reported once.
#pragma once

#include "app/status_bar.h"
#include "core/observable.h"

#include <QMenu>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

class QIcon;
class QSystemTrayIcon;

namespace glidemap {

class StatusItem {
public:
    // The item's icon in this kind of bar.
    using Look = StatusBar::Look;
    using Icon = std::function<QIcon(StatusBar::Kind, Look)>;

    // After login, the bar may be one of the last programs to start.
    static constexpr std::chrono::milliseconds usualPatience{10000};

    StatusItem(std::shared_ptr<StatusBar> bar, Icon icon,
               std::chrono::milliseconds patience = usualPatience);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem();

    QMenu& menu() { return statusMenu; }

    // Called when the user clicks the item itself and not its menu.
    std::function<void()> onActivate;

    // Called if no bar has appeared in time; then onFound, if one appears later.
    std::function<void()> onMissing;
    std::function<void()> onFound;

    // Whether the item is in a bar.
    bool isShown() const { return item != nullptr; }

    // Call when the menu's texts have changed. A menu is updated when it opens, but a bar that
    // draws the menu itself reads it earlier. Such a bar must be notified of each change.
    void menuHasChanged();

    void setLook(Look now);

    // These subscriptions redraw the icon.
    void redrawOn(Observable& changes);

private:
    void appear();
    void choose();
    void redraw();

    std::shared_ptr<StatusBar> bar;
    Icon icon;
    QMenu statusMenu;
    std::unique_ptr<QSystemTrayIcon> item; // destroyed before its menu
    StatusBar::Kind kind = StatusBar::Kind::none;
    Look look = Look::on;
    bool wasMissed = false;
    QTimer patienceEnds;
    Subscription toBar;
    Subscription toLook;
};

} // namespace glidemap
