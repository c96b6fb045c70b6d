// The program's place in the status bar: an icon with a menu.
//
// It is put there when there is a bar, be it minutes after the start: a tray that the toolkit has
// once looked for in vain it never looks for again, so it is not asked before.
//
// Units:   the patience in milliseconds.
// Thread:  the main thread.
// Owner:   the application's delegate.
// Errors:  without a bar there is an item that nobody sees, which is told once.
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
    // What the item looks like in this kind of bar.
    using Look = StatusBar::Look;
    using Icon = std::function<QIcon(StatusBar::Kind, Look)>;

    // When the user logs in the bar may be one of the last to come.
    static constexpr std::chrono::milliseconds usualPatience{10000};

    StatusItem(std::shared_ptr<StatusBar> statusBar, Icon templateIcon,
               std::chrono::milliseconds patience = usualPatience);
    StatusItem(const StatusItem&) = delete;
    StatusItem& operator=(const StatusItem&) = delete;
    ~StatusItem();

    QMenu& menu() { return statusMenu; }

    // Called when the user has chosen the item itself and not its menu.
    std::function<void()> onActivate;

    // Called if no bar has come in time, and when one comes after that.
    std::function<void()> onMissing;
    std::function<void()> onFound;

    // Whether it has found its place.
    bool isShown() const { return item != nullptr; }

    // What the menu shows has changed. It opens with what is true then; but a bar that draws itself
    // has read it long before, and shows that while it waits to be told better, so it is told now.
    void menuHasChanged();

    // Sets the look of the icon.
    void setLook(Look now);

    // Gives it the icon anew at each of these changes.
    void redrawOn(Observable& changes);

private:
    void appear();
    void choose();
    void redraw();

    std::shared_ptr<StatusBar> bar;
    Icon icon;
    QMenu statusMenu;
    std::unique_ptr<QSystemTrayIcon> item; // goes before its menu
    StatusBar::Kind kind = StatusBar::Kind::none;
    Look look = Look::on;
    bool wasMissed = false;
    QTimer patienceEnds;
    Subscription toBar;
    Subscription toLook;
};

} // namespace glidemap
