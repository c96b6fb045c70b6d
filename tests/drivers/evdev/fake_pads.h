// A set of fake touchpads that a test plugs and unplugs without a kernel. The set decides which
// touchpads exist, which of them the user may read, and which events they send.
//
// Thread:  any; the test's and the reader's threads use it.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/pad_directory.h"
#include "fake_clone.h"
#include "kit/patience.h"

#include <linux/input.h>
#include <sys/eventfd.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

// The event queue of one open touchpad. Its descriptor is readable while events are pending.
class FakeStream {
public:
    FakeStream() : ready(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}

    int descriptor() const { return ready.descriptor(); }

    // Returns the fake system, which holds this touchpad's grab and clone.
    const std::shared_ptr<FakeSystem>& system() const { return outside; }
    bool hasButtons = true;

    void send(const std::vector<InputEvent>& events) {
        const std::lock_guard lock(mutex);
        waiting.insert(waiting.end(), events.begin(), events.end());
        eventfd_write(ready.descriptor(), 1);
        isDrained = false;
    }

    bool hasUnreadEvents() {
        const std::lock_guard lock(mutex);
        return !waiting.empty();
    }

    // Discards pending events, as when a touchpad is opened, and queues the given events.
    void restart(const std::vector<InputEvent>& events) {
        const std::lock_guard lock(mutex);
        waiting.assign(events.begin(), events.end());
        isDrained = events.empty();
        drained.notify_all();
    }

    // Waits until the driver has read all events and the queue is empty.
    bool waitUntilDrained() {
        std::unique_lock lock(mutex);
        return drained.wait_for(lock, test::patience, [&] { return isDrained; });
    }

    void end(OpenPad::Read reason) {
        const std::lock_guard lock(mutex);
        ending = reason;
        eventfd_write(ready.descriptor(), 1);
    }

    OpenPad::Read next(InputEvent& event) {
        const std::lock_guard lock(mutex);
        if (!waiting.empty()) {
            event = waiting.front();
            waiting.pop_front();
            return OpenPad::Read::event;
        }
        eventfd_t ignored = 0;
        eventfd_read(ready.descriptor(), &ignored);
        isDrained = true;
        drained.notify_all();
        return ending;
    }

private:
    const std::shared_ptr<FakeSystem> outside = std::make_shared<FakeSystem>();
    OpenFile ready;
    std::mutex mutex;
    std::condition_variable drained;
    bool isDrained = false;
    std::deque<InputEvent> waiting;
    OpenPad::Read ending = OpenPad::Read::nothing;
};

class FakeOpenPad : public OpenPad {
public:
    explicit FakeOpenPad(std::shared_ptr<FakeStream> stream) : stream(std::move(stream)) {
        pad.slotCount = 5;
        pad.x = {0, 100, 0};
        pad.y = {0, 100, 0};
    }

    int descriptor() const override { return stream->descriptor(); }
    const PadDescription& description() const override { return pad; }
    Read next(InputEvent& event) override { return stream->next(event); }
    bool hasButtons() const override { return stream->hasButtons; }
    std::optional<double> grab() override { return stream->system()->grab(); }
    GrabResult grabBetweenTouches() override {
        using enum GrabResult::Outcome;
        if (stream->hasUnreadEvents()) {
            return {interrupted};
        }
        const auto time = grab();
        return time.has_value() ? GrabResult{grabbed, *time} : GrabResult{refused};
    }
    double ungrab() override { return stream->system()->ungrab(); }
    std::optional<double> ungrabBetweenTouches() override {
        return stream->hasUnreadEvents() ? std::nullopt : std::optional(ungrab());
    }
    std::unique_ptr<PadClone> makeClone() override {
        return stream->system()->makeClone() ? std::make_unique<FakeClone>(stream->system())
                                             : nullptr;
    }

private:
    std::shared_ptr<FakeStream> stream;
    PadDescription pad;
};

// The fake touchpads, shared between the test and the driver's directory.
class FakePads {
public:
    static PadIdentity identity(const std::string& name) { return {3, 1, 2, 1, name, "", ""}; }

    void plug(const std::string& node, const std::string& name, bool readable = true) {
        const std::lock_guard lock(mutex);
        pads[node] = {identity(name), readable, std::make_shared<FakeStream>()};
        eventfd_write(changes.descriptor(), 1);
    }

    void unplug(const std::string& node) {
        const std::lock_guard lock(mutex);
        pads.at(node).stream->end(OpenPad::Read::gone);
        pads.erase(node);
        eventfd_write(changes.descriptor(), 1);
    }

    void makeReadable(const std::string& node, bool readable = true) {
        const std::lock_guard lock(mutex);
        pads.at(node).readable = readable;
        eventfd_write(changes.descriptor(), 1);
    }

    // Signals a change in the device folder that affects no touchpad.
    void change() { eventfd_write(changes.descriptor(), 1); }

    // After a call with true, every search for touchpads blocks until a call with false.
    void blockCandidates(bool block) {
        const std::lock_guard lock(mutex);
        blocking = block;
        blockChanged.notify_all();
    }
    bool waitUntilBlocked() {
        std::unique_lock lock(mutex);
        return blockChanged.wait_for(lock, test::patience, [&] { return blocked; });
    }

    std::shared_ptr<FakeStream> stream(const std::string& node) {
        const std::lock_guard lock(mutex);
        return pads.at(node).stream;
    }

    int timesOpened() {
        const std::lock_guard lock(mutex);
        return opened;
    }

    // Returns how often the driver has searched for all touchpads.
    int timesSearched() {
        const std::lock_guard lock(mutex);
        return searches;
    }

    // Waits until the number of watches is `count`.
    bool waitForWatchCount(int count) {
        std::unique_lock lock(mutex);
        return watchesChanged.wait_for(lock, test::patience, [&] { return watching == count; });
    }

private:
    friend class FakeDirectory;
    friend class FakeWatch;

    struct Entry {
        PadIdentity identity;
        bool readable = true;
        std::shared_ptr<FakeStream> stream;
    };

    std::mutex mutex;
    std::map<std::string, Entry> pads;
    OpenFile changes{eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)};
    int opened = 0;
    int watching = 0;
    int searches = 0;
    std::condition_variable watchesChanged;
    bool blocking = false;
    bool blocked = false;
    std::condition_variable blockChanged;
};

class FakeWatch : public ReturnWatch {
public:
    explicit FakeWatch(std::shared_ptr<FakePads> drawer) : drawer(std::move(drawer)) {
        const std::lock_guard lock(this->drawer->mutex);
        FakeWatch::acknowledge(); // changes before the watch was created are not reported
        ++this->drawer->watching;
        this->drawer->watchesChanged.notify_all();
    }
    ~FakeWatch() override {
        const std::lock_guard lock(drawer->mutex);
        --drawer->watching;
        drawer->watchesChanged.notify_all();
    }

    std::array<int, 2> descriptors() const override { return {drawer->changes.descriptor(), -1}; }
    void acknowledge() override {
        eventfd_t ignored = 0;
        eventfd_read(drawer->changes.descriptor(), &ignored);
    }

private:
    std::shared_ptr<FakePads> drawer;
};

class FakeDirectory : public PadDirectory {
public:
    explicit FakeDirectory(std::shared_ptr<FakePads> drawer) : drawer(std::move(drawer)) {}

    std::vector<PadCandidate> candidates() override {
        std::unique_lock lock(drawer->mutex);
        ++drawer->searches;
        drawer->blocked = drawer->blocking;
        drawer->blockChanged.notify_all();
        drawer->blockChanged.wait(lock, [&] { return !drawer->blocking; });
        std::vector<PadCandidate> result;
        for (const auto& [node, entry] : drawer->pads) {
            result.push_back({node, entry.identity, entry.readable});
        }
        return result;
    }

    std::unique_ptr<OpenPad> open(const PadCandidate& candidate) override {
        const std::lock_guard lock(drawer->mutex);
        const auto found = drawer->pads.find(candidate.node);
        if (found == drawer->pads.end() || !found->second.readable) {
            return nullptr;
        }
        ++drawer->opened;
        return std::make_unique<FakeOpenPad>(found->second.stream);
    }

    std::optional<PadCandidate> candidateAt(const std::string& node) override {
        const std::lock_guard lock(drawer->mutex);
        const auto found = drawer->pads.find(node);
        return found != drawer->pads.end()
                   ? std::optional(
                         PadCandidate{node, found->second.identity, found->second.readable})
                   : std::nullopt;
    }

    std::unique_ptr<ReturnWatch> watch() override { return std::make_unique<FakeWatch>(drawer); }
    std::unique_ptr<CloneWatch> watchClones() override {
        return std::make_unique<FakeCloneWatch>();
    }

private:
    std::shared_ptr<FakePads> drawer;
};

} // namespace glidemap::test
