#include "app/status_item.h"

#include <QSystemTrayIcon>
#include <utility>

namespace glidemap {

namespace {

// The same in both languages: it is the program's name. Assistive programs read it, too.
constexpr const char* description = "Glidemap";

} // namespace

StatusItem::StatusItem(std::shared_ptr<StatusBar> statusBar, Icon templateIcon)
    : bar(std::move(statusBar)), icon(std::move(templateIcon)) {
    toBar = bar->changes().subscribe({}, [this] { appear(); });
    appear();
}

StatusItem::~StatusItem() = default;

void StatusItem::redraw() {
    if (item != nullptr) {
        item->setIcon(icon(kind));
    }
}

// Once: the toolkit follows a bar that goes and comes back.
void StatusItem::appear() {
    if (item != nullptr || bar->kind() == StatusBar::Kind::none) {
        return;
    }
    kind = bar->kind();
    item = std::make_unique<QSystemTrayIcon>(icon(kind));
    item->setToolTip(description);
    item->setContextMenu(&statusMenu);
    QObject::connect(item.get(), &QSystemTrayIcon::activated, item.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger && onActivate) {
                             onActivate();
                         }
                     });
    item->show();
}

} // namespace glidemap
