// The program's item in the status bar: an icon with a menu.
//
// The item is created when a status bar exists, possibly minutes after startup. Qt searches for a
// system tray only once, so it must not search earlier.
//
// Units:   milliseconds for `patience`, the time to wait for a bar.
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  if no bar appears in time, onMissing is called once, and the item stays invisible.
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
    using Look = StatusBar::Look;
    // Returns the item's icon for a kind of bar and a look.
    using Icon = std::function<QIcon(StatusBar::Kind, Look)>;

    // The time to wait for a bar. The bar may be one of the last programs to start after login.
    static constexpr std::chrono::milliseconds usualPatience{10000};

    StatusItem(std::shared_ptr<StatusBar> bar, Icon icon,
               std::chrono::milliseconds patience = usualPatience);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem();

    QMenu& menu() { return statusMenu; }

    // Called when the user clicks the item itself, not its menu.
    std::function<void()> onActivate;

    // onMissing is called if no bar appears in time. onFound is called if a bar appears later.
    std::function<void()> onMissing;
    std::function<void()> onFound;

    // Whether the item has been created. This stays true if the bar disappears.
    bool isShown() const { return item != nullptr; }

    // Must be called when the state that the menu shows has changed. A menu is normally updated
    // when it opens, but a bar that draws the menu itself reads it earlier. For such a bar, this
    // function updates the menu by emitting aboutToShow().
    void menuHasChanged();

    void setLook(Look now);

    // Redraws the icon whenever `changes` sends a notification.
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
