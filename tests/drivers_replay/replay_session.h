// The replay driver as the program sees it: loaded by path, with a recording named in the
// environment.
//
// Thread:  the test's; the driver reports on its own, and what it reports is waited for.
#pragma once

#include "input/multitouch_device_manager.h"
#include "kit/temporary_folder.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace glidemap::test {

// What the driver delivered, a report of contacts or a change of a button.
struct Delivery {
    std::string what; // "1@0.25,0.75 state 4", "nothing", "button 0 down"
    double timestamp = 0;
    double arrival = 0; // of the steady clock
    std::thread::id thread;
    std::vector<double> contactTimes; // as the records themselves have them
};

class ReplaySession {
public:
    // Reports are kept, and passed to `onDelivery` on the driver's thread.
    explicit ReplaySession(std::filesystem::path driverLibrary = GLIDEMAP_REPLAY_DRIVER);
    ReplaySession(const ReplaySession&) = delete;
    ReplaySession& operator=(const ReplaySession&) = delete;
    ~ReplaySession();

    // Names a recording of this content in the environment.
    void setRecording(const std::string& content);
    static void setRecordingPath(const std::filesystem::path& path);
    static void setLooping(bool loops);

    // Makes a manager and starts it.
    MultitouchDeviceManager& start();
    MultitouchDeviceManager& manager() { return *_manager; }

    // The driver's own functions, for the device that was last heard of.
    void startDevice();
    void stopDevice();

    // What was delivered, once it is at least so many.
    std::vector<Delivery> waitFor(std::size_t count);
    std::size_t deliveryCount();

    std::function<void(const Delivery&)> onDelivery;

private:
    static void buttonChanged(driver::Device device, std::int32_t button, bool down,
                              double timestamp);
    void deliver(Delivery delivery);

    std::filesystem::path library;
    TemporaryFolder folder;
    std::unique_ptr<MultitouchDeviceManager> _manager;
    std::atomic<driver::Device> heardDevice = nullptr;
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<Delivery> deliveries;
};

std::vector<std::string> whats(const std::vector<Delivery>& deliveries);

// Seconds of the steady clock.
double now();

// Of this process.
std::size_t threadCount();

// Until there are no more than so many.
void waitForThreads(std::size_t count);

} // namespace glidemap::test
