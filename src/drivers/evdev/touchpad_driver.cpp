#include "drivers/evdev/touchpad_driver.h"

#include "core/log.h"
#include "drivers/evdev/thread_without_signals.h"

#include <pthread.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <optional>
#include <utility>

namespace glidemap {

namespace {

constexpr std::size_t wakeUpIndex = 0;

Touchpad& record(const std::unique_ptr<Touchpad>& touchpad) {
    return *touchpad;
}

bool isReady(const pollfd& descriptor) {
    return descriptor.revents != 0;
}

} // namespace

TouchpadDriver::TouchpadDriver(std::unique_ptr<PadDirectory> padDirectory, WatchdogTime& time)
    : directory(std::move(padDirectory)), wakeUp(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)),
      clicks(
          time, [this] { wakeReader(); }, [this] { return directory->watchClones(); }) {}

TouchpadDriver::~TouchpadDriver() {
    for (const auto& touchpad : touchpads) {
        stop(touchpad.get());
    }
    if (reader.joinable()) {
        reader.join();
    }
}

std::vector<driver::Device> TouchpadDriver::createList() {
    const Lock lock(mutex);
    std::vector<driver::Device> list;
    unreadable = 0;
    for (const PadCandidate& candidate : directory->candidates()) {
        logLine("touchpads", "found ", candidate.node, ", ", candidate.identity.name,
                candidate.readable ? "" : ": not used, this user may not read it");
        updateAccess(candidate);
        if (candidate.readable) {
            Touchpad& touchpad = recordFor(candidate, list);
            touchpad.setLastNode(candidate.node);
            list.push_back(&touchpad);
        } else {
            ++unreadable;
        }
    }
    return list;
}

// Returns the Touchpad object that reads this node, an unconnected object with the same identity,
// or a new one.
Touchpad& TouchpadDriver::recordFor(const PadCandidate& candidate,
                                    const std::vector<driver::Device>& taken) {
    for (const auto& touchpad : touchpads) {
        if (touchpad->isOpenAt(candidate.node)) {
            return *touchpad;
        }
    }
    for (const auto& touchpad : touchpads) {
        const bool isFree = touchpad->connected() == nullptr &&
                            std::ranges::find(taken, touchpad.get()) == taken.end();
        if (isFree && touchpad->identity() == candidate.identity) {
            return *touchpad;
        }
    }
    touchpads.push_back(std::make_unique<Touchpad>(candidate.identity));
    return *touchpads.back();
}

// A descriptor stays readable when the user loses access to the node, so the reader must close it.
void TouchpadDriver::updateAccess(const PadCandidate& candidate) {
    for (const auto& touchpad : touchpads) {
        if (touchpad->isOpenAt(candidate.node) &&
            touchpad->connected()->mayBeRead != candidate.readable) {
            touchpad->connected()->mayBeRead = candidate.readable;
            wakeReader();
        }
    }
}

std::int32_t TouchpadDriver::unreadableCount() const {
    const Lock lock(mutex);
    return unreadable;
}

Touchpad* TouchpadDriver::find(driver::Device device) const {
    const auto found = std::ranges::find(touchpads, device, &std::unique_ptr<Touchpad>::get);
    return found != touchpads.end() ? found->get() : nullptr;
}

const char* TouchpadDriver::name(driver::Device device) const {
    const Lock lock(mutex);
    const Touchpad* touchpad = find(device);
    return touchpad != nullptr ? touchpad->identity().name.c_str() : nullptr;
}

const char* TouchpadDriver::filterObstacle(driver::Device device) const {
    const Lock lock(mutex);
    const Touchpad* touchpad = find(device);
    const PadConnection* connection = touchpad != nullptr ? touchpad->connected() : nullptr;
    return connection != nullptr ? connection->interception.obstacle() : nullptr;
}

void TouchpadDriver::addCallback(driver::Device device, driver::ContactCallback callback) {
    const Lock lock(mutex);
    if (Touchpad* touchpad = find(device); touchpad != nullptr) {
        touchpad->addCallback(callback);
    }
}

void TouchpadDriver::removeCallback(driver::Device device, driver::ContactCallback callback) {
    const Lock lock(mutex);
    if (Touchpad* touchpad = find(device); touchpad != nullptr) {
        touchpad->removeCallback(callback);
    }
}

void TouchpadDriver::setButtonCallback(driver::ButtonCallback callback) {
    const Lock lock(mutex);
    buttonCallback = callback;
}

void TouchpadDriver::setClickFilter(driver::FilterClick filter, void* context) {
    const Lock lock(mutex);
    clicks.setFilter(filter, context);
}

void TouchpadDriver::switchClickFilter(bool on) {
    const Lock lock(mutex);
    clicks.switchOn(on);
}

// Does not take the driver's lock, which a hanging thread may hold.
void TouchpadDriver::pause() {
    clicks.watchdog().pause();
}

void TouchpadDriver::resume() {
    clicks.watchdog().resume();
}

// Opens the touchpad synchronously, so that all later touches are reported.
void TouchpadDriver::start(driver::Device device) {
    const Lock lock(mutex);
    Touchpad* touchpad = find(device);
    if (touchpad == nullptr || touchpad->isStarted()) {
        return;
    }
    touchpad->start();
    connect(*touchpad);
    // The reader may be waiting for the lock, and opening several touchpads is not a stall.
    clicks.watchdog().progress();
    needsScan = true; // the scan reads the current contacts or searches for a missing touchpad
    launchReader();
    wakeReader();
}

void TouchpadDriver::stop(driver::Device device) {
    std::thread ending;
    {
        const Lock lock(mutex);
        Touchpad* touchpad = find(device);
        if (touchpad == nullptr || !touchpad->isStarted()) {
            return;
        }
        if (auto connection = touchpad->stop(); connection != nullptr) {
            closedConnections.push_back(std::move(connection));
        }
        wakeReader();
        const bool fromCallback = reader.get_id() == std::this_thread::get_id();
        if (!anyStarted() && !fromCallback) {
            ending = std::move(reader);
        }
    }
    if (ending.joinable()) {
        ending.join();
    }
}

bool TouchpadDriver::anyStarted() const {
    return std::ranges::any_of(touchpads, &Touchpad::isStarted, record);
}

bool TouchpadDriver::isOpen(const std::string& node) const {
    return std::ranges::any_of(touchpads,
                               [&node](const auto& touchpad) { return touchpad->isOpenAt(node); });
}

// Tries the node where the touchpad was last seen, then every other node.
void TouchpadDriver::connect(Touchpad& touchpad) {
    if (!touchpad.lastNode().empty()) {
        const auto known = directory->candidateAt(touchpad.lastNode());
        if (known.has_value() && connectAt(touchpad, *known)) {
            return;
        }
    }
    for (const PadCandidate& candidate : directory->candidates()) {
        if (connectAt(touchpad, candidate)) {
            return;
        }
    }
}

// Two touchpads of the same model may have the same identity, so a node that is already open cannot
// be the missing touchpad.
bool TouchpadDriver::connectAt(Touchpad& touchpad, const PadCandidate& candidate) {
    if (candidate.identity != touchpad.identity() || isOpen(candidate.node)) {
        return false;
    }
    auto pad = directory->open(candidate);
    if (pad == nullptr) {
        logLine("touchpads", "cannot open ", candidate.node, ", ", candidate.identity.name);
        return false;
    }
    logLine("touchpads", "reads ", candidate.node, ", ", candidate.identity.name);
    touchpad.setLastNode(candidate.node);
    touchpad.connect(
        std::make_unique<PadConnection>(candidate.node, std::move(pad), &touchpad, clicks));
    return true;
}

void TouchpadDriver::launchReader() {
    if (readerRuns) {
        return;
    }
    if (reader.joinable()) {
        reader.join(); // the thread ended after a callback had stopped the last touchpad
    }
    // The thread first waits for the lock, so it does not reset `readerRuns` before it is set.
    reader = threadWithoutSignals([this] { runReader(); });
    readerRuns = true;
}

void TouchpadDriver::wakeReader() const {
    eventfd_write(wakeUp.descriptor(), 1);
}

void TouchpadDriver::runReader() {
    pthread_setname_np(pthread_self(), "glidemap-evdev");
    for (;;) {
        clicks.watchdog().work(); // waiting for the lock is part of the work
        {
            const Lock lock(mutex);
            processEvents();
            closedConnections.clear();
            if (!anyStarted()) {
                returnWatch.reset();
                descriptors.clear();
                polled.clear();
                readerRuns = false;
                clicks.watchdog().rest(false);
                return;
            }
            collectDescriptors();
            clicks.watchdog().rest(anyForwardedIsTouched());
        }
        waitForWork();
    }
}

// Waits with a time-out only while a clone is new or about to be removed.
void TouchpadDriver::waitForWork() {
    timespec left{};
    if (wakeAt.has_value()) {
        using std::chrono::nanoseconds;
        constexpr long second = 1000000000;
        const auto rest = std::max<nanoseconds>(*wakeAt - clicks.now(), nanoseconds(0)).count();
        left = {static_cast<time_t>(rest / second), static_cast<long>(rest % second)};
    }
    ppoll(descriptors.data(), descriptors.size(), wakeAt.has_value() ? &left : nullptr, nullptr);
}

void TouchpadDriver::processEvents() {
    withdrawUnreadable();
    readReady();
    const bool stalled = clicks.noticeStall();
    if (clicks.takeChange() || stalled) {
        readConnected(); // grabs or releases the touchpads
    } else {
        readDue();
    }
    clonesChanged = false;
    while (needsScan) {
        needsScan = false;
        // Must precede reconnect(), so that a touchpad that returns during the search is noticed.
        updateWatch();
        reconnect();
        readFresh();
    }
    updateWatch();
}

// Closes the touchpads that this user may not read any more. Requests a search for them, because
// access may have been restored in the meantime.
void TouchpadDriver::withdrawUnreadable() {
    // NOLINTNEXTLINE(modernize-loop-convert): a callback may add touchpads
    for (std::size_t index = 0; index < touchpads.size(); ++index) {
        const PadConnection* connection = touchpads[index]->connected();
        if (connection != nullptr && !connection->mayBeRead) {
            touchpads[index]->revoke(buttonCallback);
            needsScan = true;
        }
    }
}

// Reads the descriptors that poll() reported as ready. A touchpad may have been reopened after
// poll() returned; reading it is then harmless.
void TouchpadDriver::readReady() {
    for (std::size_t index = 0; index < descriptors.size(); ++index) {
        if (!isReady(descriptors[index])) {
            continue;
        }
        if (polled[index] != nullptr) {
            read(*polled[index]);
        } else if (index == wakeUpIndex) {
            eventfd_t ignored = 0;
            eventfd_read(wakeUp.descriptor(), &ignored);
        } else if (index >= firstOfClones) {
            if (clicks.cloneWatch() != nullptr) {
                clicks.cloneWatch()->acknowledge();
            }
            clonesChanged = true;
        } else if (returnWatch != nullptr) {
            returnWatch->acknowledge();
            std::ranges::for_each(touchpads, &Touchpad::allowRetry, record);
            needsScan = true;
        }
    }
}

void TouchpadDriver::read(Touchpad& touchpad) {
    if (touchpad.connected() != nullptr) {
        touchpad.read(buttonCallback);
        clicks.watchdog().progress(); // reported for each touchpad, because many may be open
        needsScan = needsScan || touchpad.mayHaveReturned();
    }
}

template <typename Condition>
void TouchpadDriver::readIf(Condition condition) {
    // NOLINTNEXTLINE(modernize-loop-convert): a callback may add touchpads
    for (std::size_t index = 0; index < touchpads.size(); ++index) {
        const PadConnection* connection = touchpads[index]->connected();
        if (connection != nullptr && condition(*connection)) {
            read(*touchpads[index]);
        }
    }
}

void TouchpadDriver::readFresh() {
    readIf([](const PadConnection& connection) { return connection.isFirstRead; });
}

void TouchpadDriver::readConnected() {
    readIf([](const PadConnection& /*connection*/) { return true; });
}

// Serves the touchpads whose clone may be ready or must be removed.
void TouchpadDriver::readDue() {
    const auto now = clicks.now();
    readIf([&](const PadConnection& connection) {
        const auto next = connection.interception.nextLook();
        const bool isNew = connection.interception.isIntroducing();
        return (next.has_value() && now >= *next) || (isNew && clonesChanged);
    });
}

std::optional<ClickInterception::Moment> TouchpadDriver::nextLook() const {
    std::optional<ClickInterception::Moment> earliest;
    for (const auto& touchpad : touchpads) {
        const auto next = touchpad->nextLook();
        if (next.has_value() && (!earliest.has_value() || *next < *earliest)) {
            earliest = next;
        }
    }
    return earliest;
}

bool TouchpadDriver::anyForwardedIsTouched() const {
    return std::ranges::any_of(touchpads, &Touchpad::isForwardedAndTouched, record);
}

void TouchpadDriver::updateWatch() {
    const bool needed = std::ranges::any_of(touchpads, &Touchpad::isWaiting, record);
    if (!needed) {
        returnWatch.reset();
    } else if (returnWatch == nullptr) {
        returnWatch = directory->watch();
    }
}

// Searches the system once for all missing touchpads.
void TouchpadDriver::reconnect() {
    if (std::ranges::none_of(touchpads, &Touchpad::mayHaveReturned, record)) {
        return;
    }
    const std::vector<PadCandidate> candidates = directory->candidates();
    for (const auto& touchpad : touchpads) {
        for (std::size_t index = 0; touchpad->mayHaveReturned() && index < candidates.size();
             ++index) {
            connectAt(*touchpad, candidates[index]);
        }
        clicks.watchdog().progress();
    }
}

void TouchpadDriver::collectDescriptors() {
    descriptors.clear();
    polled.clear();
    addDescriptor(wakeUp.descriptor(), nullptr); // its index is wakeUpIndex
    const std::array<int, 2> watched =
        returnWatch != nullptr ? returnWatch->descriptors() : std::array{-1, -1};
    for (const int descriptor : watched) {
        addDescriptor(descriptor, nullptr);
    }
    for (const auto& touchpad : touchpads) {
        if (const PadConnection* connection = touchpad->connected(); connection != nullptr) {
            addDescriptor(connection->pad->descriptor(), touchpad.get());
        }
    }
    firstOfClones = descriptors.size();
    if (clicks.cloneWatch() != nullptr) {
        for (const int descriptor : clicks.cloneWatch()->descriptors()) {
            addDescriptor(descriptor, nullptr);
        }
    }
    wakeAt = nextLook();
}

void TouchpadDriver::addDescriptor(int descriptor, Touchpad* touchpad) {
    descriptors.push_back({descriptor, POLLIN, 0}); // poll() ignores a negative descriptor
    polled.push_back(touchpad);
}

} // namespace glidemap
