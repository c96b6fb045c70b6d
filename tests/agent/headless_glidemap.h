// The whole program but its interface: every real service, connected by the program's own runtime.
//
// Thread:  the main thread, within the application object's life and around its event loop.
// Owner:   the agent; one in a process, because touches come through shared instances.
// Errors:  as each service has them. Without a driver, or without permission, the rest works.
#pragma once

#include "bindings/binding_store.h"
#include "core/observable.h"
#include "core/uuid.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/gesture_runtime.h"
#include "platform/linux/services/linux_services.h"
#include "platform/qt/qt_main_queue.h"

#include <functional>
#include <memory>
#include <optional>

namespace glidemap::agent {

enum class Prompt { askUser, never };

class HeadlessGlidemap {
public:
    HeadlessGlidemap();
    HeadlessGlidemap(const HeadlessGlidemap&) = delete;
    HeadlessGlidemap& operator=(const HeadlessGlidemap&) = delete;
    ~HeadlessGlidemap();

    // `logged` is called for each new line of the log of gestures.
    void start(Prompt prompt, std::function<void(const GestureLogEntry&)> logged);
    void stop();

    MainQueue& mainQueue() { return *queue; }

private:
    void makeDispatcher();
    void tellNewEntry();

    std::shared_ptr<QtMainQueue> queue = std::make_shared<QtMainQueue>();
    LinuxServices services{queue};
    std::shared_ptr<UserDefaults> defaults;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<GestureDispatcher> dispatcher;
    std::unique_ptr<GestureRuntime> runtime; // from the start on
    std::function<void(const GestureLogEntry&)> tellLogged;
    std::optional<Uuid> lastTold;
    Subscription toLog;
};

} // namespace glidemap::agent
