#include "core/observable.h"

#include <algorithm>
#include <vector>

namespace glidemap {

// The subscriptions own the entries; the weak references in this list expire with them.
struct Observable::Entries {
    std::vector<std::weak_ptr<Subscription::Entry>> list;
};

Observable::Observable() : entries(std::make_unique<Entries>()) {}
Observable::~Observable() = default;

Subscription Observable::subscribe(std::function<void()> willChange,
                                   std::function<void()> didChange) {
    auto entry = std::make_shared<Subscription::Entry>(
        Subscription::Entry{std::move(willChange), std::move(didChange)});
    std::erase_if(entries->list, [](const auto& listed) { return listed.expired(); });
    entries->list.push_back(entry);
    return Subscription(std::move(entry));
}

void Observable::announceWillChange() {
    announce(&Subscription::Entry::willChange);
}

void Observable::announceDidChange() {
    announce(&Subscription::Entry::didChange);
}

void Observable::announce(std::function<void()> Subscription::Entry::*which) {
    // Iterates over a copy, because an observer may subscribe or unsubscribe during the
    // notification.
    const auto listed = entries->list;
    for (const auto& reference : listed) {
        if (const auto entry = reference.lock(); entry && (*entry).*which) {
            ((*entry).*which)();
        }
    }
}

} // namespace glidemap
