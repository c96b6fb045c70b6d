// A dispatcher with fake ports. The test passes gestures to the dispatcher, and compares the typed
// keys and the log.
//
// Thread:  the test's; the test decides when the main queue runs.
#pragma once

#include "bindings/binding_store.h"
#include "core/lang.h"
#include "dispatch/gesture_dispatcher.h"
#include "kit/fake_key_event_poster.h"
#include "kit/fake_main_queue.h"
#include "kit/fake_screen_lock.h"
#include "kit/fake_user_defaults.h"
#include "kit/fake_user_session.h"
#include "kit/fake_workspace.h"
#include "kit/printers.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

// A log entry without the fields that differ from run to run.
struct Logged {
    GestureType gesture{};
    std::optional<std::string> action;
    std::optional<std::string> app;

    friend bool operator==(const Logged&, const Logged&) = default;
    friend void PrintTo(const Logged& logged, std::ostream* stream) {
        *stream << rawValue(logged.gesture) << " → " << logged.action.value_or("(nothing)") << " @ "
                << logged.app.value_or("(unknown)");
    }
};

inline const std::string editorID = "org.example.Editor";
inline const std::string editorName = "Editor";

inline GestureBinding binding(GestureType gesture, BindingAction action,
                              BindingScope scope = GlobalScope{}) {
    return {.gesture = gesture, .action = std::move(action), .scope = std::move(scope)};
}

// Returns a binding that types a key without modifiers. The key identifies the binding.
inline GestureBinding typing(std::uint16_t keyCode, GestureType gesture,
                             BindingScope scope = GlobalScope{}) {
    return binding(gesture, KeyShortcut{keyCode, 0}, std::move(scope));
}

inline GestureBinding disabled(GestureBinding binding) {
    binding.enabled = false;
    return binding;
}

class DispatchStage {
public:
    explicit DispatchStage(BindingList bindings = {}, std::shared_ptr<FakeUserDefaults> settings =
                                                          std::make_shared<FakeUserDefaults>())
        : store(std::make_shared<BindingStore>(std::move(bindings))),
          defaults(std::move(settings)) {
        auto runner = std::make_shared<ActionRunner>(ActionRunner::Ports{.workspace = workspace,
                                                                         .keyEvents = keyEvents,
                                                                         .screenLock = lock,
                                                                         .session = session});
        dispatcher = GestureDispatcher::create({.store = store,
                                                .defaults = defaults,
                                                .mainQueue = mainQueue,
                                                .workspace = workspace,
                                                .actionRunner = std::move(runner),
                                                .wallClock = [this] { return now; },
                                                .lang = &lang,
                                                .session = session,
                                                .clock =
                                                    [this] {
                                                        return uptime;
                                                    }});
    }
    DispatchStage(const DispatchStage&) = delete;
    DispatchStage& operator=(const DispatchStage&) = delete;
    ~DispatchStage() = default;

    // Returns the keys of all typed shortcuts, in order.
    std::vector<std::uint16_t> typed() const {
        std::vector<std::uint16_t> keys;
        for (const auto& post : keyEvents->posts) {
            keys.push_back(post.front().keyCode);
        }
        return keys;
    }

    // Returns the log entries, newest first.
    std::vector<Logged> logged() const {
        std::vector<Logged> entries;
        for (const GestureLogEntry& entry : dispatcher->recentEvents()) {
            entries.push_back({entry.gesture, entry.matchedAction, entry.appName});
        }
        return entries;
    }

    void bringEditorForward() { workspace->setFrontmost({editorID, editorName}); }

    std::shared_ptr<BindingStore> store;
    std::shared_ptr<FakeUserDefaults> defaults;
    std::shared_ptr<FakeMainQueue> mainQueue = std::make_shared<FakeMainQueue>();
    std::shared_ptr<FakeWorkspace> workspace = std::make_shared<FakeWorkspace>();
    std::shared_ptr<FakeKeyEventPoster> keyEvents = std::make_shared<FakeKeyEventPoster>();
    std::shared_ptr<FakeScreenLock> lock = std::make_shared<FakeScreenLock>();
    std::shared_ptr<FakeUserSession> session = std::make_shared<FakeUserSession>();
    WallTime now{};
    TimelyQueue::Time uptime{};
    Lang lang{nullptr};
    std::shared_ptr<GestureDispatcher> dispatcher;
};

} // namespace glidemap::test
