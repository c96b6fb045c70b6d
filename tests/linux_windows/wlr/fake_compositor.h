// A Wayland compositor that has no windows but says that it had, one message at a time.
//
// Thread:  one; it serves on a thread of its own.
// Owner:   a test, whose environment has the runtime folder.
// Errors:  what cannot be done is a failure of the test.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

struct wl_display;
struct wl_event_source;
struct wl_resource;

namespace glidemap {

class FakeCompositor {
public:
    static constexpr const char* socketName = "wayland-fake";

    // Offers this version of the list of windows; with 0, none.
    explicit FakeCompositor(int version = 3);
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;
    ~FakeCompositor();

    // What is said within arrives together. Runs on the compositor's thread.
    void say(const std::function<void()>& messages);

    // To be used in say(). Windows are counted from 0; a null text is not said.
    void open(const char* appID, const char* title);
    void states(std::size_t window, const std::vector<std::uint32_t>& all);
    void title(std::size_t window, const char* text);
    void done(std::size_t window);
    void closed(std::size_t window);
    void finished();
    void breakOff();

    // The handles that the client has not given back.
    std::size_t handles();

private:
    void attend();

    wl_display* display;
    wl_event_source* source = nullptr;
    wl_resource* manager = nullptr;
    std::vector<wl_resource*> windows;
    std::size_t living = 0;
    int toSay = -1;
    int said = -1;
    const std::function<void()>* messages = nullptr;
    bool stopping = false;
    std::thread thread;
};

} // namespace glidemap
