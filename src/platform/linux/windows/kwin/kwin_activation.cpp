#include "platform/linux/windows/kwin/kwin_activation.h"

#include "platform/linux/windows/kwin/kwin_script.h"
#include "platform/linux/windows/kwin/kwin_script_file.h"

#include <gio/gio.h>

#include <memory>
#include <utility>

namespace glidemap {

namespace {

// Loads, runs and unloads a single script.
class Activation : public std::enable_shared_from_this<Activation> {
public:
    Activation(DesktopBus& onBus, const std::string& kwin, const std::string& handle,
               std::function<void()> orElse)
        : bus(onBus), owner(kwin), scripting{kwin, "/Scripting", "org.kde.kwin.Scripting"},
          name(newKWinScriptName(onBus)), otherwise(std::move(orElse)),
          file(kwinScriptActivating(handle)) {}

    void begin() {
        if (!file.whole) {
            otherwise();
            return;
        }
        bus.call(scripting, "loadScript", g_variant_new("(ss)", file.path.c_str(), name.c_str()),
                 [self = shared_from_this()](GVariant* values, const GError*) {
                     int number = -1;
                     if (values != nullptr && g_variant_is_of_type(values, G_VARIANT_TYPE("(i)"))) {
                         g_variant_get(values, "(i)", &number);
                     }
                     if (number < 0) {
                         self->otherwise();
                     } else {
                         self->run("/Scripting/Script" + std::to_string(number),
                                   "/" + std::to_string(number));
                     }
                 });
    }

private:
    // Plasma 6 exports the script at `path`. Plasma 5 exports it at `orElse`.
    void run(const std::string& path, const std::string& orElse) {
        bus.call({owner, path, "org.kde.kwin.Script"}, "run", nullptr,
                 [self = shared_from_this(), orElse](GVariant*, const GError* error) {
                     if (error != nullptr && isUnknownOnTheBus(*error) && !orElse.empty()) {
                         self->run(orElse, "");
                         return;
                     }
                     self->bus.send(self->scripting, "unloadScript",
                                    g_variant_new("(s)", self->name.c_str()));
                     if (error != nullptr) {
                         self->otherwise();
                     }
                 });
    }

    DesktopBus& bus;
    const std::string owner;
    const BusObject scripting;
    const std::string name;
    const std::function<void()> otherwise;
    const KWinScriptFile file;
};

} // namespace

void activateInKWin(DesktopBus& bus, const std::string& owner, const std::string& handle,
                    std::function<void()> otherwise) {
    std::make_shared<Activation>(bus, owner, handle, std::move(otherwise))->begin();
}

} // namespace glidemap
