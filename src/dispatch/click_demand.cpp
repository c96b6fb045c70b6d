#include "dispatch/click_demand.h"

#include <algorithm>
#include <utility>

namespace glidemap {

namespace {

bool anyClickIsBound(const BindingStore& store) {
    const auto bindings = store.bindings();
    return std::ranges::any_of(*bindings, [](const GestureBinding& binding) {
        return binding.enabled && isClick(binding.gesture);
    });
}

} // namespace

ClickDemand::ClickDemand(std::shared_ptr<GestureDispatcher> gestureDispatcher,
                         std::shared_ptr<ClickTap> clickTap)
    : dispatcher(std::move(gestureDispatcher)), tap(std::move(clickTap)),
      toDispatcher(dispatcher->changes().subscribe({}, [this] { update(); })),
      toStore(dispatcher->store().changes().subscribe({}, [this] { update(); })) {
    update();
}

void ClickDemand::update() {
    const bool isNeeded = dispatcher->masterEnabled() && anyClickIsBound(dispatcher->store());
    if (lastNotified != isNeeded) {
        lastNotified = isNeeded;
        tap->setNeeded(isNeeded);
    }
}

} // namespace glidemap
