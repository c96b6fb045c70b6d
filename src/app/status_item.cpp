#include "app/status_item.h"

#include <QAction>
#include <QIcon>
#include <QSystemTrayIcon>
#include <utility>

namespace glidemap {

namespace {

// The same in both languages: it is the program's name. Assistive programs read it, too.
constexpr const char* description = "Glidemap";

using Kind = StatusBar::Kind;

} // namespace

StatusItem::StatusItem(std::shared_ptr<StatusBar> statusBar, Icon templateIcon,
                       std::chrono::milliseconds patience)
    : bar(std::move(statusBar)), icon(std::move(templateIcon)) {
    patienceEnds.setSingleShot(true);
    QObject::connect(&patienceEnds, &QTimer::timeout, &patienceEnds, [this] {
        wasMissed = true;
        if (onMissing) {
            onMissing();
        }
    });
    patienceEnds.start(patience);
    toBar = bar->changes().subscribe({}, [this] { appear(); });
    appear();
}

StatusItem::~StatusItem() = default;

// In some bars a click is how the menu opens.
void StatusItem::choose() {
    if (kind != Kind::opensMenu && onActivate) {
        onActivate();
    }
}

// The toolkit describes a key by its sign, such as "Control" and ",", to a bar that draws the menu. Some bars know keys by their
// names alone, "comma", and show only letters: a menu of which one key shows and the next does not. So there none does.
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

// Made once: the toolkit follows a bar that goes and comes back. One that comes back may be of another kind, as where a panel
// first owns the tray of the display and then takes items over the bus.
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
    // A bar opens the menu by itself, mostly with the other button. The plain click, which most
    // bars hand on instead, is for what the user most likely wants.
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
