// A Wayland compositor that reports invented windows, one message at a time.
//
// Thread:  one; the compositor serves its client on its own thread.
// Owner:   a test, whose environment has the runtime folder.
// Errors:  any failure fails the test.
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

    // Offers this version of the protocol; 0 offers no protocol.
    explicit FakeCompositor(int version = 3);
    FakeCompositor(const FakeCompositor&) = delete;
    FakeCompositor& operator=(const FakeCompositor&) = delete;
    ~FakeCompositor();

    // Runs the function on the compositor's thread. The client receives all messages of the
    // function together.
    void say(const std::function<void()>& messages);

    // Call these functions in say(). Window numbers start at 0. For a null text, open() sends no
    // event.
    void open(const char* appID, const char* title);
    void states(std::size_t window, const std::vector<std::uint32_t>& all);
    void title(std::size_t window, const char* text);
    void done(std::size_t window);
    void closed(std::size_t window);
    void finished();
    void breakOff();

    // Call in say(), for example to offer other protocols.
    wl_display* serving() const { return display; }

    // Returns the handles that the client has not destroyed.
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
