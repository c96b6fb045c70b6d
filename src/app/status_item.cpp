#include "app/status_item.h"

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

void StatusItem::menuHasChanged() {
    if (kind == Kind::drawsItself) {
        Q_EMIT statusMenu.aboutToShow();
    }
}

void StatusItem::redrawOn(Observable& changes) {
    toLook = changes.subscribe({}, [this] {
        if (item != nullptr) {
            item->setIcon(icon(kind));
        }
    });
}

// Once: the toolkit follows a bar that goes and comes back.
void StatusItem::appear() {
    if (item != nullptr || bar->kind() == Kind::none) {
        return;
    }
    patienceEnds.stop();
    kind = bar->kind();
    menuHasChanged();
    item = std::make_unique<QSystemTrayIcon>(icon(kind), &statusMenu);
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
    if (wasMissed && onFound) {
        onFound();
    }
}

} // namespace glidemap
