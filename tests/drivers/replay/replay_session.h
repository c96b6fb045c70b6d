// Runs the replay driver as the program does: loads it by path, with a recording named in the
// environment.
//
// Thread:  the test's; the driver reports on its own thread, and the test waits for its reports.
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

// One report from the driver: contacts or a button change.
struct Delivery {
    std::string what; // such as "1@0.25,0.75 state 4", "nothing" or "button 0 down"
    double timestamp = 0;
    double arrival = 0; // in seconds of the steady clock
    std::thread::id thread;
    std::vector<double> contactTimes; // the timestamps of the contact records
};

class ReplaySession {
public:
    // Stores reports and passes them to `onDelivery` on the driver's thread.
    explicit ReplaySession(std::filesystem::path driverLibrary = GLIDEMAP_REPLAY_DRIVER);
    ReplaySession(const ReplaySession&) = delete;
    ReplaySession& operator=(const ReplaySession&) = delete;
    ~ReplaySession();

    // Writes a recording with this content and names it in the environment.
    void setRecording(const std::string& content);
    static void setRecordingPath(const std::filesystem::path& path);
    static void setLooping(bool loops);

    // Creates a manager and starts it.
    MultitouchDeviceManager& start();
    MultitouchDeviceManager& manager() { return *_manager; }

    // startDevice() and stopDevice() call the driver's functions for the device that reported last.
    void startDevice();
    void stopDevice();

    // Waits for at least `count` deliveries and returns them.
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

std::vector<std::string> descriptions(const std::vector<Delivery>& deliveries);

// Returns the time of the steady clock, in seconds.
double now();

// Returns the number of threads in this process.
std::size_t threadCount();

// Waits until this process has at most `count` threads.
void waitForThreads(std::size_t count);

} // namespace glidemap::test
