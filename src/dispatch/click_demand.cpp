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

ClickDemand::ClickDemand(std::shared_ptr<GestureDispatcher> dispatcher,
                         std::shared_ptr<ClickTap> tap)
    : dispatcher(std::move(dispatcher)), tap(std::move(tap)),
      toDispatcher(this->dispatcher->changes().subscribe({}, [this] { update(); })),
      toStore(this->dispatcher->store().changes().subscribe({}, [this] { update(); })) {
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
