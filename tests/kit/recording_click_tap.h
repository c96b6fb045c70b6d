// A click tap whose events are the test's, and that remembers what it was told.
//
// Thread:  offer() on any one; the rest on the test's main thread. The notes are the test's once
//          nobody offers.
#pragma once

#include "dispatch/click_tap.h"

#include <string>
#include <utility>
#include <vector>

namespace glidemap::kit {

class RecordingClickTap : public ClickTap {
public:
    bool create(Callback newCallback) override {
        notes.emplace_back(isPermitted ? "create" : "create (refused)");
        if (isPermitted) {
            callback = std::move(newCallback);
        }
        return isPermitted;
    }

    void setEnabled(bool enabled) override { notes.emplace_back(enabled ? "enable" : "disable"); }
    void remove() override { notes.emplace_back("remove"); }
    void setNeeded(bool needed) override { notes.emplace_back(needed ? "needed" : "not needed"); }

    // Also after the removal, as a careless system would.
    Verdict offer(const ClickEvent& event) { return callback(event); }

    // What was told since the last time.
    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    bool isPermitted = true;

private:
    Callback callback;
    std::vector<std::string> notes;
};

} // namespace glidemap::kit
