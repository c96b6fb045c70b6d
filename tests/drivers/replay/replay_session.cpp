#include "replay_session.h"

#include <dlfcn.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace glidemap::test {

namespace {

ReplaySession* currentSession = nullptr;

std::string describe(const std::vector<MTTouch>& records) {
    std::string text;
    for (const MTTouch& touch : records) {
        std::array<char, 100> part{};
        std::snprintf(part.data(), part.size(), "%s%d@%g,%g state %d", text.empty() ? "" : ", ",
                      touch.identifier, static_cast<double>(touch.normalized.pos.x),
                      static_cast<double>(touch.normalized.pos.y), touch.state);
        text += part.data();
    }
    return text.empty() ? "nothing" : text;
}

std::vector<double> times(const std::vector<MTTouch>& records) {
    std::vector<double> result;
    for (const MTTouch& touch : records) {
        result.push_back(touch.timestamp);
    }
    return result;
}

TouchDriverPlatform platform(const std::filesystem::path& library) {
    return {library.string(), [](void* handle) {
                return TouchDriverPlatform::ListAccess{
                    reinterpret_cast<driver::ListCount>(dlsym(handle, driver::listCountSymbol)),
                    reinterpret_cast<driver::ListValueAtIndex>(
                        dlsym(handle, driver::listValueAtIndexSymbol))};
            }};
}

} // namespace

double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::size_t threadCount() {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

void waitForThreads(std::size_t count) {
    while (threadCount() > count) {
        std::this_thread::yield();
    }
}

ReplaySession::ReplaySession(std::filesystem::path driverLibrary)
    : library(std::move(driverLibrary)) {
    currentSession = this;
    unsetenv("GLIDEMAP_RECORDING");
    setLooping(false);
    MultitouchDeviceManager::setFrameSink([this](driver::Device device,
                                                 const std::vector<MTTouch>& records,
                                                 double timestamp) {
        heardDevice = device;
        deliver({describe(records), timestamp, now(), std::this_thread::get_id(), times(records)});
    });
}

ReplaySession::~ReplaySession() {
    if (_manager != nullptr) {
        _manager->stop();
    }
    MultitouchDeviceManager::setFrameSink(nullptr);
    currentSession = nullptr;
}

void ReplaySession::setRecording(const std::string& content) {
    setRecordingPath(folder.write("recording", content));
}

void ReplaySession::setRecordingPath(const std::filesystem::path& path) {
    setenv("GLIDEMAP_RECORDING", path.c_str(), 1);
}

void ReplaySession::setLooping(bool loops) {
    setenv("GLIDEMAP_RECORDING_LOOP", loops ? "1" : "0", 1);
}

MultitouchDeviceManager& ReplaySession::start() {
    _manager = std::make_unique<MultitouchDeviceManager>(platform(library));
    if (auto* symbol = _manager->optionalSymbol(driver::setButtonCallbackSymbol)) {
        reinterpret_cast<driver::SetButtonCallback>(symbol)(&buttonChanged);
    }
    _manager->start();
    return *_manager;
}

void ReplaySession::buttonChanged(driver::Device /*device*/, std::int32_t button, bool down,
                                  double timestamp) {
    currentSession->deliver({"button " + std::to_string(button) + (down ? " down" : " up"),
                             timestamp,
                             now(),
                             std::this_thread::get_id(),
                             {}});
}

void ReplaySession::deliver(Delivery delivery) {
    {
        const std::lock_guard lock(mutex);
        deliveries.push_back(delivery);
    }
    arrived.notify_all();
    if (onDelivery) {
        onDelivery(delivery);
    }
}

void ReplaySession::startDevice() {
    auto* start = reinterpret_cast<driver::Start>(_manager->optionalSymbol(driver::startSymbol));
    start(heardDevice, 0);
}

void ReplaySession::stopDevice() {
    auto* stop = reinterpret_cast<driver::Stop>(_manager->optionalSymbol(driver::stopSymbol));
    stop(heardDevice);
}

std::vector<Delivery> ReplaySession::waitFor(std::size_t count) {
    std::unique_lock lock(mutex);
    arrived.wait(lock, [&] { return deliveries.size() >= count; });
    return deliveries;
}

std::size_t ReplaySession::deliveryCount() {
    const std::lock_guard lock(mutex);
    return deliveries.size();
}

std::vector<std::string> descriptions(const std::vector<Delivery>& deliveries) {
    std::vector<std::string> result;
    for (const Delivery& delivery : deliveries) {
        result.push_back(delivery.what);
    }
    return result;
}

} // namespace glidemap::test
