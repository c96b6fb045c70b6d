#include "platform/linux/windows/kwin/kwin_script_loader.h"

#include "platform/linux/windows/kwin/kwin_script.h"
#include "platform/linux/windows/kwin/kwin_script_file.h"

#include <gio/gio.h>

#include <optional>
#include <utility>

namespace glidemap {

struct KWinScriptLoader::State : std::enable_shared_from_this<State> {
    DesktopBus& bus;
    std::string owner;
    std::function<void()> refused;
    unsigned starting = 0; // a subscription that exists while KWin is starting
    bool asking = false;
    bool askAgain = false;
    std::optional<KWinScriptFile> file;
    // The name is unique for each load. KWin unloads scripts by name, so with a fixed name another
    // process, or an earlier instance that is still exiting, would also unload this script.
    const std::string scriptName;

    State(DesktopBus& onBus, std::string kwin, std::function<void()> onRefused)
        : bus(onBus), owner(std::move(kwin)), refused(std::move(onRefused)),
          scriptName(newKWinScriptName(bus)) {}

    BusObject scripting() const { return {owner, "/Scripting", "org.kde.kwin.Scripting"}; }

    // Returns a callback that discards the reply if the loader has been destroyed.
    template <typename Work>
    DesktopBus::Answer then(Work work) {
        return [weak = weak_from_this(), work](GVariant* values, const GError* error) {
            if (const std::shared_ptr<State> here = weak.lock()) {
                work(*here, values, error);
            }
        };
    }

    void begin();
    void ask();
    void load();
    void run(const std::string& path, const std::string& orElse);
    void end();
};

void KWinScriptLoader::State::begin() {
    starting = bus.subscribe({owner}, [weak = weak_from_this()](const std::string&, GVariant*) {
        if (const std::shared_ptr<State> here = weak.lock()) {
            here->ask();
        }
    });
    ask();
}

void KWinScriptLoader::State::ask() {
    askAgain = asking;
    if (asking) {
        return;
    }
    asking = true;
    bus.call(scripting(), "unloadScript", g_variant_new("(s)", scriptName.c_str()),
             then([](State& here, GVariant*, const GError* error) {
                 here.asking = false;
                 if (error == nullptr) {
                     here.load();
                 } else if (!isUnknownOnTheBus(*error)) {
                     here.refused();
                 } else if (here.askAgain) {
                     here.ask();
                 }
             }));
}

void KWinScriptLoader::State::load() {
    bus.unsubscribe(std::exchange(starting, 0));
    file.emplace(kwinScriptReportingTo(bus.uniqueName()));
    if (!file->whole) {
        end();
        refused();
        return;
    }
    bus.call(scripting(), "loadScript",
             g_variant_new("(ss)", file->path.c_str(), scriptName.c_str()),
             then([](State& here, GVariant* values, const GError*) {
                 int id = -1;
                 if (values != nullptr && g_variant_is_of_type(values, G_VARIANT_TYPE("(i)"))) {
                     g_variant_get(values, "(i)", &id);
                 }
                 if (id < 0) {
                     here.end();
                     here.refused();
                     return;
                 }
                 const std::string number = std::to_string(id);
                 here.run("/Scripting/Script" + number, "/" + number);
             }));
}

// Plasma 6 exports the script at `path`. Plasma 5 exports it at `orElse`. An older script may have
// the same path (see kwin_activation.h), so all scripts are started afterwards.
void KWinScriptLoader::State::run(const std::string& path, const std::string& orElse) {
    bus.call({owner, path, "org.kde.kwin.Script"}, "run", nullptr,
             then([orElse](State& here, GVariant*, const GError* error) {
                 if (error != nullptr && isUnknownOnTheBus(*error) && !orElse.empty()) {
                     here.run(orElse, "");
                     return;
                 }
                 if (error == nullptr) {
                     here.bus.send(here.scripting(), "start", nullptr);
                     return;
                 }
                 here.end();
                 here.refused();
             }));
}

void KWinScriptLoader::State::end() {
    file.reset();
    bus.unsubscribe(std::exchange(starting, 0));
}

KWinScriptLoader::KWinScriptLoader(DesktopBus& bus, std::string owner,
                                   std::function<void()> refused)
    : state(std::make_shared<State>(bus, std::move(owner), std::move(refused))) {
    state->begin();
}

KWinScriptLoader::~KWinScriptLoader() {
    state->end();
    state->bus.send(state->scripting(), "unloadScript",
                    g_variant_new("(s)", state->scriptName.c_str()));
}

void KWinScriptLoader::reportReceived() {
    state->file.reset();
}

const std::string& KWinScriptLoader::owner() const {
    return state->owner;
}

} // namespace glidemap
