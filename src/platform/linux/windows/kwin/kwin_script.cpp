#include "platform/linux/windows/kwin/kwin_script.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>

namespace glidemap {

namespace {

// Works with Plasma 5 and 6, whose scripting interfaces use different names for the same objects.
//
// Reports of changes are delayed by a timer of 0 ms, until KWin has finished its current work.
// While the focus moves, no window is active for a moment, and a closed window is still listed when
// the next one is activated. An X11 program may also set the names of a window after the window was
// added.
constexpr const char* reportingScript = R"((function () {
    const isSix = workspace.windowActivated !== undefined;

    function identity(window) {
        return {
            handle: String(window.internalId),
            desktopFile: String(window.desktopFileName || ""),
            class: String(window.resourceClass || ""),
            instance: String(window.resourceName || ""),
            title: String(window.caption || ""),
            process: window.pid
        };
    }

    function isRegular(window) {
        return (window.normalWindow || window.dialog) && !window.skipTaskbar;
    }

    // Stops reporting after this many reports without a reply: the program has exited without
    // unloading the script.
    const maxUnheard = 50;
    let unheard = 0;

    function onReply() {
        unheard = 0;
    }

    function report() {
        if (unheard++ > maxUnheard) {
            return;
        }
        const all = isSix ? workspace.windowList() : workspace.clientList();
        const active = isSix ? workspace.activeWindow : workspace.activeClient;
        callDBus(reportName, reportPath, reportInterface, reportMethod, JSON.stringify({
            windows: all.filter(isRegular).map(identity),
            active: active ? identity(active) : null
        }), onReply);
    }

    const soon = new QTimer();
    soon.interval = 0;
    soon.singleShot = true;
    soon.timeout.connect(report);

    function reportSoon() {
        soon.start();
    }

    function follow(window) {
        window.desktopFileNameChanged.connect(reportSoon);
        window.windowClassChanged.connect(reportSoon);
        reportSoon();
    }

    if (isSix) {
        workspace.windowActivated.connect(reportSoon);
        workspace.windowAdded.connect(follow);
        workspace.windowRemoved.connect(reportSoon);
        workspace.windowList().forEach(follow);
    } else {
        workspace.clientActivated.connect(reportSoon);
        workspace.clientAdded.connect(follow);
        workspace.clientRemoved.connect(reportSoon);
        workspace.clientList().forEach(follow);
    }
    report();
})();
)";

constexpr const char* activatingScript = R"((function () {
    const isSix = workspace.windowActivated !== undefined;
    const all = isSix ? workspace.windowList() : workspace.clientList();
    for (const window of all) {
        if (String(window.internalId) === handle) {
            if (isSix) {
                workspace.activeWindow = window;
            } else {
                workspace.activeClient = window;
            }
        }
    }
})();
)";

std::string constant(const char* name, const std::string& value) {
    // A JSON string is also a valid JavaScript string.
    return std::string("const ") + name + " = " + nlohmann::json(value).dump() + ";\n";
}

std::string textAt(const nlohmann::json& window, const char* key) {
    const auto found = window.find(key);
    return found != window.end() && found->is_string() ? found->get<std::string>() : "";
}

std::optional<pid_t> processAt(const nlohmann::json& window) {
    const auto found = window.find("process");
    if (found == window.end() || !found->is_number_integer()) {
        return std::nullopt;
    }
    const auto process = found->get<std::int64_t>();
    if (process <= 0 || process > std::numeric_limits<pid_t>::max()) {
        return std::nullopt;
    }
    return static_cast<pid_t>(process);
}

std::optional<WindowIdentity> identityFrom(const nlohmann::json& window) {
    if (!window.is_object()) {
        return std::nullopt;
    }
    const std::string desktopFile = textAt(window, "desktopFile");
    return WindowIdentity{desktopFile.empty() ? textAt(window, "class") : desktopFile,
                          textAt(window, "instance"), textAt(window, "title"), processAt(window)};
}

} // namespace

std::string kwinScriptReportingTo(const std::string& busName) {
    return constant("reportName", busName) + constant("reportPath", kwinReportPath) +
           constant("reportInterface", kwinReportInterface) +
           constant("reportMethod", kwinReportMethod) + reportingScript;
}

std::string kwinScriptActivating(const std::string& handle) {
    return constant("handle", handle) + activatingScript;
}

std::optional<KWinReport> readKWinReport(std::string_view text) {
    constexpr bool throws = false;
    const nlohmann::json json = nlohmann::json::parse(text, nullptr, throws);
    if (!json.is_object() || !json.contains("windows") || !json["windows"].is_array()) {
        return std::nullopt;
    }
    KWinReport report;
    for (const nlohmann::json& window : json["windows"]) {
        if (std::optional<WindowIdentity> identity = identityFrom(window)) {
            report.windows.push_back(*std::move(identity));
            report.handles.push_back(textAt(window, "handle"));
        }
    }
    if (json.contains("active")) {
        report.active = identityFrom(json["active"]);
        report.activeHandle = report.active ? textAt(json["active"], "handle") : "";
    }
    return report;
}

} // namespace glidemap
