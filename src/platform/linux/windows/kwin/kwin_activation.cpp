#include "platform/linux/windows/kwin/kwin_activation.h"

#include "platform/linux/windows/kwin/kwin_script.h"
#include "platform/linux/windows/kwin/kwin_script_file.h"

#include <gio/gio.h>

#include <chrono>
#include <list>
#include <utility>

namespace glidemap {

namespace {

// KWin needs some milliseconds to read and run a script.
constexpr std::chrono::seconds maxRunTime{2};

struct Script {
    Script(const DesktopBus& bus, const std::string& handle)
        : name(newKWinScriptName(bus)), file(kwinScriptActivating(handle)) {}

    const std::string name;
    const KWinScriptFile file;
    DesktopThread::Watch end;
};

using SharedScript = std::shared_ptr<Script>;

} // namespace

struct KWinActivations::State : std::enable_shared_from_this<State> {
    DesktopThread& thread;
    DesktopBus& bus;
    const std::string owner;
    const BusObject scripting{owner, "/Scripting", "org.kde.kwin.Scripting"};
    std::list<SharedScript> started;

    State(DesktopThread& runsOn, DesktopBus& onBus, std::string kwin)
        : thread(runsOn), bus(onBus), owner(std::move(kwin)) {}

    void load(const SharedScript& script, std::function<void()> otherwise);
    void run(const std::string& path, const std::string& orElse, const SharedScript& script,
             const std::function<void()>& otherwise);
    void start(const SharedScript& script);
    void unload(const Script& script) {
        bus.send(scripting, "unloadScript", g_variant_new("(s)", script.name.c_str()));
    }
};

void KWinActivations::State::load(const SharedScript& script, std::function<void()> otherwise) {
    bus.call(scripting, "loadScript",
             g_variant_new("(ss)", script->file.path.c_str(), script->name.c_str()),
             [self = shared_from_this(), script, otherwise = std::move(otherwise)](GVariant* values,
                                                                                   const GError*) {
                 int number = -1;
                 if (values != nullptr && g_variant_is_of_type(values, G_VARIANT_TYPE("(i)"))) {
                     g_variant_get(values, "(i)", &number);
                 }
                 if (number < 0) {
                     otherwise();
                 } else {
                     self->run("/Scripting/Script" + std::to_string(number),
                               "/" + std::to_string(number), script, otherwise);
                 }
             });
}

// Plasma 6 exports the script at `path`. Plasma 5 exports it at `orElse`.
void KWinActivations::State::run(const std::string& path, const std::string& orElse,
                                 const SharedScript& script,
                                 const std::function<void()>& otherwise) {
    bus.call(
        {owner, path, "org.kde.kwin.Script"}, "run", nullptr,
        [self = shared_from_this(), orElse, script, otherwise](GVariant*, const GError* error) {
            if (error == nullptr) {
                self->start(script);
            } else if (isUnknownOnTheBus(*error) && !orElse.empty()) {
                self->run(orElse, "", script, otherwise);
            } else {
                self->unload(*script);
                otherwise();
            }
        });
}

void KWinActivations::State::start(const SharedScript& script) {
    bus.send(scripting, "start", nullptr);
    started.push_back(script);
    const auto finish = [weakly = weak_from_this(), weakScript = std::weak_ptr(script)] {
        const std::shared_ptr<State> self = weakly.lock();
        if (const SharedScript ended = weakScript.lock(); self != nullptr && ended != nullptr) {
            self->unload(*ended);
            self->started.remove(ended);
        }
    };
    script->end = thread.after(maxRunTime, finish);
}

KWinActivations::KWinActivations(DesktopThread& thread, DesktopBus& bus, std::string owner)
    : state(std::make_shared<State>(thread, bus, std::move(owner))) {}

KWinActivations::~KWinActivations() {
    for (const SharedScript& script : state->started) {
        state->unload(*script);
    }
    state->started.clear();
}

void KWinActivations::activate(const std::string& handle, std::function<void()> otherwise) {
    const auto script = std::make_shared<Script>(state->bus, handle);
    if (script->file.whole) {
        state->load(script, std::move(otherwise));
    } else {
        otherwise();
    }
}

} // namespace glidemap
