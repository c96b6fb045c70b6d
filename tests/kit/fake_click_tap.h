// A click tap that records its calls. The test provides its events.
//
// Thread:  offer() on one thread at a time; the rest on the test's main thread. The test may read
//          the notes only while no thread calls offer().
#pragma once

#include "dispatch/click_tap.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

class FakeClickTap : public ClickTap {
public:
    bool create(Callback newCallback) override {
        note(isPermitted ? "create" : "create (refused)");
        if (isPermitted) {
            callback = std::move(newCallback);
        }
        return isPermitted;
    }

    void setEnabled(bool enabled) override { note(enabled ? "enable" : "disable"); }
    void remove() override { note("remove"); }
    void setNeeded(bool needed) override { note(needed ? "needed" : "not needed"); }

    // Also works after remove(), because a system may deliver a late event.
    Verdict offer(const ClickEvent& event) { return callback(event); }

    // Returns the calls since the previous call of this function.
    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    bool isPermitted = true;
    std::function<void(const std::string& call)> onCall;

private:
    void note(const char* call) {
        notes.emplace_back(call);
        if (onCall) {
            onCall(call);
        }
    }

    Callback callback;
    std::vector<std::string> notes;
};

} // namespace glidemap::test
