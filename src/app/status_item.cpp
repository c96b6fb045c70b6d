#include "app/status_item.h"

#include <QAction>
#include <QIcon>
#include <QSystemTrayIcon>
#include <utility>

namespace glidemap {

namespace {

// The same in both languages: the program's name. Screen readers read it, too.
constexpr const char* description = "Glidemap";

using Kind = StatusBar::Kind;

} // namespace

StatusItem::StatusItem(std::shared_ptr<StatusBar> bar, Icon icon,
                       std::chrono::milliseconds patience)
    : bar(std::move(bar)), icon(std::move(icon)) {
    patienceEnds.setSingleShot(true);
    QObject::connect(&patienceEnds, &QTimer::timeout, &patienceEnds, [this] {
        wasMissed = true;
        if (onMissing) {
            onMissing();
        }
    });
    patienceEnds.start(patience);
    toBar = this->bar->changes().subscribe({}, [this] { appear(); });
    appear();
}

StatusItem::~StatusItem() = default;

// In some bars a click opens the menu.
void StatusItem::choose() {
    if (kind != Kind::opensMenu && onActivate) {
        onActivate();
    }
}

// Removes all shortcuts in bars that draw the menu. Qt sends keys as signs, such as "Control" and
// ",", but some bars accept only names ("comma"), and would show some shortcuts and omit others.
void StatusItem::menuHasChanged() {
    if (kind == Kind::drawsItself) {
        for (QAction* action : statusMenu.actions()) {
            action->setShortcut({});
        }
        Q_EMIT statusMenu.aboutToShow();
    }
}

void StatusItem::redrawOn(Observable& changes) {
    toLook = changes.subscribe({}, [this] { redraw(); });
}

void StatusItem::setLook(Look now) {
    if (std::exchange(look, now) != now) {
        redraw();
    }
}

void StatusItem::redraw() {
    if (item != nullptr) {
        item->setIcon(icon(kind, look));
        bar->itemWasDrawn(look);
    }
}

// Created once: Qt follows a bar that disappears and comes back. The new bar may be of another
// kind: a panel may first own the display's tray and later take items over the bus.
void StatusItem::appear() {
    const Kind now = bar->kind();
    if (now == Kind::none) {
        return;
    }
    const bool isAnotherKind = std::exchange(kind, now) != now;
    if (item != nullptr) {
        if (isAnotherKind) {
            menuHasChanged();
            redraw();
        }
        return;
    }
    patienceEnds.stop();
    menuHasChanged();
    item = std::make_unique<QSystemTrayIcon>(icon(kind, look), &statusMenu);
    item->setToolTip(description);
    item->setContextMenu(&statusMenu);
    // A bar opens the menu by itself, usually on the other button. Most bars forward the plain
    // click, which then does what the user most likely wants.
    QObject::connect(item.get(), &QSystemTrayIcon::activated, item.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger) {
                             choose();
                         }
                     });
    item->show();
    bar->itemWasDrawn(look);
    if (wasMissed && onFound) {
        onFound();
    }
}

} // namespace glidemap
