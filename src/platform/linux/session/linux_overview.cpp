#include "platform/linux/session/linux_overview.h"

#include "core/log.h"
#include "platform/linux/desktop/desktop_bus.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

struct Shell {
    const char* service;
    const char* path;
    const char* interface;
};

constexpr std::array<Shell, 2> shells{{
    {"org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell"},
    {"org.Cinnamon", "/org/Cinnamon", "org.Cinnamon"},
}};

constexpr const char* shownProperty = "OverviewActive";
constexpr const char* kwinShortcut = "Overview";

constexpr BusMethod ofShell(const Shell& shell, const char* name) {
    return {Bus::session, shell.service, shell.path, "org.freedesktop.DBus.Properties", name};
}

constexpr BusMethod ofKWin(const char* name) {
    return {Bus::session, "org.kde.kglobalaccel", "/component/kwin",
            "org.kde.kglobalaccel.Component", name};
}

bool contains(GVariant* reply, std::string_view wanted) {
    const auto words = wordsIn(reply);
    return words && std::ranges::count(*words, wanted) > 0;
}

class OverviewRequest : public BusRequest {
public:
    enum class Purpose { look, toggle };

    OverviewRequest(std::chrono::milliseconds patience, Purpose wanted,
                    std::shared_ptr<OverviewLookup> sharedLookup)
        : BusRequest(patience), purpose(wanted), lookup(std::move(sharedLookup)) {}
    OverviewRequest(const OverviewRequest&) = delete;
    OverviewRequest& operator=(const OverviewRequest&) = delete;

    ~OverviewRequest() override {
        if (purpose == Purpose::look) {
            lookup->isPending = false;
        }
    }

    void begin() override { askShell(0); }

private:
    std::shared_ptr<OverviewRequest> alive() {
        return std::static_pointer_cast<OverviewRequest>(shared_from_this());
    }

    void askShell(std::size_t index) {
        if (index == shells.size()) {
            askKWin();
            return;
        }
        const Shell& shell = shells[index];
        call(ofShell(shell, "Get"), g_variant_new("(ss)", shell.interface, shownProperty),
             [this, kept = alive(), index](const BusReply& answer) {
                 const auto shown = booleanIn(answer.values);
                 if (!shown) {
                     askShell(index + 1);
                     return;
                 }
                 lookup->mayExist = true;
                 if (purpose == Purpose::toggle) {
                     setShown(shells[index], !*shown);
                 }
             });
    }

    void setShown(const Shell& shell, bool shown) {
        call(ofShell(shell, "Set"),
             g_variant_new("(ssv)", shell.interface, shownProperty, g_variant_new_boolean(shown)),
             [kept = alive()](const BusReply&) {});
    }

    // Checks whether the shortcut exists before calling it, because KWin reports success even for
    // an unknown shortcut. The shortcut exists only while KWin can draw the overview.
    void askKWin() {
        call(ofKWin("shortcutNames"), nullptr, [this, kept = alive()](const BusReply& answer) {
            const bool isThere = contains(answer.values, kwinShortcut);
            lookup->mayExist = isThere;
            if (purpose == Purpose::look) {
                return;
            }
            if (isThere) {
                call(ofKWin("invokeShortcut"), g_variant_new("(s)", kwinShortcut),
                     [kept = alive()](const BusReply&) {});
            } else {
                logLine("services", "no overview service on the bus");
            }
        });
    }

    const Purpose purpose;
    const std::shared_ptr<OverviewLookup> lookup;
};

} // namespace

LinuxOverview::LinuxOverview(DesktopThread& desktop, std::chrono::milliseconds answerWithin)
    : patience(answerWithin), requests(desktop) {}

void LinuxOverview::toggle() {
    requests.start(
        std::make_shared<OverviewRequest>(patience, OverviewRequest::Purpose::toggle, lookup));
}

bool LinuxOverview::mayExist() {
    const bool didExist = lookup->mayExist; // read before the next lookup can change it
    if (!lookup->isPending.exchange(true)) {
        requests.start(
            std::make_shared<OverviewRequest>(patience, OverviewRequest::Purpose::look, lookup));
    }
    return didExist;
}

} // namespace glidemap
