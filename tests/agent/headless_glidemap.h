// The program without its interface: every real service, connected by the program's own runtime.
//
// Thread:  the main thread, which must run the application's event loop after start().
// Owner:   the agent; one per process, because the touch engine is shared by the whole process.
// Errors:  those of the services. Without a driver or a permission, the other services work.
#pragma once

#include "bindings/binding_store.h"
#include "core/observable.h"
#include "core/uuid.h"
#include "dispatch/gesture_dispatcher.h"
#include "dispatch/gesture_runtime.h"
#include "platform/linux/shell/linux_services.h"
#include "platform/qt/qt_main_queue.h"

#include <functional>
#include <memory>
#include <optional>

namespace glidemap::test {

enum class Prompt { askUser, never };

class HeadlessGlidemap {
public:
    HeadlessGlidemap();
    HeadlessGlidemap(const HeadlessGlidemap&) = delete;
    HeadlessGlidemap& operator=(const HeadlessGlidemap&) = delete;
    ~HeadlessGlidemap();

    // `logged` is called for each new entry of the gesture log.
    void start(Prompt prompt, std::function<void(const GestureLogEntry&)> logged);
    void stop();

    MainQueue& mainQueue() { return *queue; }

private:
    void makeDispatcher();
    void notifyNewEntry();

    std::shared_ptr<QtMainQueue> queue = std::make_shared<QtMainQueue>();
    LinuxServices services{queue};
    std::shared_ptr<UserDefaults> defaults;
    std::shared_ptr<BindingStore> store;
    std::shared_ptr<GestureDispatcher> dispatcher;
    std::unique_ptr<GestureRuntime> runtime; // set by start()
    std::function<void(const GestureLogEntry&)> notifyLogged;
    std::optional<Uuid> lastNotified;
    Subscription toLog;
};

} // namespace glidemap::test
