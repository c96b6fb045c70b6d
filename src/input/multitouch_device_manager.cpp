#include "input/multitouch_device_manager.h"

#include "core/log.h"
#include "core/snapshot.h"

#include <dlfcn.h>

#include <algorithm>
#include <cassert>
#include <memory>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* cannotLoad = "无法加载 MultitouchSupport.framework: ";
constexpr const char* symbolsMissing = "MultitouchSupport 符号解析失败";
constexpr const char* noDevice = "未找到多点触摸设备";

// Pads report far fewer contacts. A larger count means a broken report, and reading it could
// exhaust the memory.
constexpr std::int32_t maxPlausibleCount = 65'536;

// The driver's callback has no context argument, so the sink is global to the process. It is never
// destroyed: a driver that was not stopped may call back until the process exits.
Snapshot<MultitouchDeviceManager::FrameSink>& frameSink() {
    static auto& sink = *new Snapshot<MultitouchDeviceManager::FrameSink>;
    return sink;
}

std::optional<TouchDriverPlatform>& sharedPlatform() {
    static std::optional<TouchDriverPlatform> platform;
    return platform;
}

template <typename Function>
void resolve(void* handle, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(handle, name));
}

} // namespace

MultitouchDeviceManager::MultitouchDeviceManager(const TouchDriverPlatform& platform) {
    handle = dlopen(platform.libraryPath.c_str(), RTLD_NOW);
    if (handle == nullptr) {
        const char* reason = dlerror(); // NOLINT(concurrency-mt-unsafe): main thread
        _loadError = std::string(cannotLoad) + (reason != nullptr ? reason : "");
        logLine("touchpads", "cannot load the driver ", platform.libraryPath, ": ", reason);
        return;
    }
    resolveSymbols();
    listAccess = platform.listAccess(handle);
    const bool readable = listAccess.count != nullptr && listAccess.valueAtIndex != nullptr;
    if (createList == nullptr || registerCallback == nullptr || startDevice == nullptr ||
        !readable) {
        _loadError = symbolsMissing;
        logLine("touchpads", "the driver ", platform.libraryPath, " lacks a symbol");
    }
}

void MultitouchDeviceManager::resolveSymbols() {
    resolve(handle, driver::createListSymbol, createList);
    resolve(handle, driver::registerCallbackSymbol, registerCallback);
    resolve(handle, driver::unregisterCallbackSymbol, unregisterCallback);
    resolve(handle, driver::startSymbol, startDevice);
    resolve(handle, driver::stopSymbol, stopDevice);
}

void MultitouchDeviceManager::configureShared(TouchDriverPlatform platform) {
    sharedPlatform() = std::move(platform);
}

MultitouchDeviceManager& MultitouchDeviceManager::shared() {
    assert(sharedPlatform().has_value());
    static MultitouchDeviceManager instance(*sharedPlatform());
    return instance;
}

void MultitouchDeviceManager::setFrameSink(FrameSink sink) {
    frameSink().set(std::move(sink));
}

std::int32_t MultitouchDeviceManager::contactCallback(driver::Device device, const MTTouch* records,
                                                      std::int32_t count, double timestamp,
                                                      std::int32_t /*frame*/) {
    if (records != nullptr && count > maxPlausibleCount) {
        return 0;
    }
    std::vector<MTTouch> copy;
    if (records != nullptr && count >= 1) {
        copy.assign(records, records + count);
    }
    if (const auto sink = frameSink().get(); *sink) {
        (*sink)(device, std::move(copy), timestamp);
    }
    return 0;
}

bool MultitouchDeviceManager::canStart() const {
    return !running && !_loadError.has_value() && handle != nullptr;
}

void MultitouchDeviceManager::start() {
    isRequested = true;
    if (!canStart()) {
        return;
    }
    deviceList = createList();
    if (deviceList == nullptr) {
        logLine("touchpads", "the driver returned no device list");
        _loadError = noDevice;
        return;
    }
    devices = listedDevices();
    std::ranges::for_each(devices, [this](driver::Device device) { run(device); });
    running = !devices.empty();
    logLine("touchpads", "started ", devices.size());
    if (!running) {
        _loadError = noDevice;
    }
}

void MultitouchDeviceManager::lookForDevices() {
    const bool foundNone = _loadError == noDevice;
    if (isRequested && (running || foundNone)) {
        startNewDevices();
    }
    observers.announceDidChange();
}

void MultitouchDeviceManager::startNewDevices() {
    const driver::DeviceList list = createList();
    if (list == nullptr) {
        return;
    }
    deviceList = list;
    if (!running) {
        devices.clear();
    }
    for (driver::Device device : listedDevices()) {
        if (std::ranges::find(devices, device) == devices.end()) {
            devices.push_back(device);
            run(device);
        }
    }
    running = !devices.empty();
    if (running) {
        _loadError.reset();
    }
}

std::vector<driver::Device> MultitouchDeviceManager::listedDevices() {
    std::vector<driver::Device> listed;
    const long count = listAccess.count(deviceList);
    for (long index = 0; index < count; ++index) {
        if (const void* device = listAccess.valueAtIndex(deviceList, index); device != nullptr) {
            listed.push_back(const_cast<driver::Device>(device));
        }
    }
    return listed;
}

void MultitouchDeviceManager::run(driver::Device device) {
    registerCallback(device, &contactCallback);
    startDevice(device, 0);
}

void MultitouchDeviceManager::stop() {
    isRequested = false;
    if (!running) {
        return;
    }
    for (driver::Device device : devices) {
        if (stopDevice != nullptr) {
            stopDevice(device);
        }
        if (unregisterCallback != nullptr) {
            unregisterCallback(device, &contactCallback);
        }
    }
    running = false;
}

void* MultitouchDeviceManager::optionalSymbol(const char* name) const {
    return handle != nullptr ? dlsym(handle, name) : nullptr;
}

} // namespace glidemap
