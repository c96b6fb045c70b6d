#include "app/status_item.h"

#include <QAction>
#include <QIcon>
#include <QSystemTrayIcon>
#include <utility>

namespace glidemap {

namespace {

// The item's tooltip. It is the same in both languages, and screen readers read it aloud.
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

// Handles a click on the item. In some bars, the click opens the menu instead.
void StatusItem::choose() {
    if (kind != Kind::opensMenu && onActivate) {
        onActivate();
    }
}

// For bars that draw the menu themselves, removes all shortcuts and updates the menu. Qt describes
// keys by their characters, such as ",", but some bars accept only key names, such as "comma". Such
// a bar would show some of the shortcuts and omit others.
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

// Creates the QSystemTrayIcon once. If the bar disappears and reappears, Qt adds the icon again.
// The kind of bar can change: for example, a panel may first own the X11 tray and later show items
// over D-Bus.
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
    // The bar opens the menu itself, usually on a right click. Most bars forward a left click,
    // which opens the settings.
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
