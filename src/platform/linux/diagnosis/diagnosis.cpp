#include "platform/linux/diagnosis/diagnosis.h"

#include "bindings/binding_json.h"
#include "bindings/read_file.h"
#include "drivers/evdev/device_report.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/user_folders.h"
#include "platform/linux/diagnosis/bus_survey.h"
#include "platform/linux/diagnosis/report_page.h"
#include "platform/linux/diagnosis/socket_server.h"
#include "platform/linux/touch_driver_platform.h"

#include <dlfcn.h>
#include <gio/gio.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <future>
#include <span>
#include <system_error>
#include <variant>
#include <vector>

namespace glidemap {

namespace {

struct Service {
    Bus bus;
    const char* name;
};

constexpr std::array compositors = {
    Service{Bus::session, "org.gnome.Shell"},
    Service{Bus::session, "org.kde.KWin"},
    Service{Bus::session, "org.Cinnamon"},
};
constexpr std::array statusBars = {
    Service{Bus::session, "org.kde.StatusNotifierWatcher"},
};
constexpr std::array locks = {
    Service{Bus::system, "org.freedesktop.login1"},
    Service{Bus::session, "org.gnome.ScreenSaver"},
    Service{Bus::session, "org.cinnamon.ScreenSaver"},
    Service{Bus::session, "org.mate.ScreenSaver"},
    Service{Bus::session, "org.xfce.ScreenSaver"},
    Service{Bus::session, "org.freedesktop.ScreenSaver"},
};
constexpr std::array overviews = {
    Service{Bus::session, "org.gnome.Shell"},
    Service{Bus::session, "org.Cinnamon"},
    Service{Bus::session, "org.kde.kglobalaccel"},
};

constexpr std::array portals = {
    Service{Bus::session, "org.freedesktop.portal.Desktop"},
};

struct Buses {
    BusSurvey session;
    BusSurvey system;

    const BusSurvey& of(Bus bus) const { return bus == Bus::system ? system : session; }
};

std::string systemName() {
    std::ifstream file("/etc/os-release");
    for (std::string line; std::getline(file, line);) {
        constexpr std::string_view key = "PRETTY_NAME=";
        if (line.starts_with(key)) {
            line.erase(0, key.size());
            std::erase(line, '"');
            return line;
        }
    }
    return "(unknown)";
}

// Returns the other processes of this program that the user is running.
std::string runningGlidemap() {
    std::string processes;
    std::error_code error;
    for (std::filesystem::directory_iterator each("/proc", error), end; each != end;
         each.increment(error)) {
        const std::string number = each->path().filename();
        const bool isProcess = number.find_first_not_of("0123456789") == std::string::npos;
        struct stat status {};
        std::ifstream file(each->path() / "comm");
        std::string name;
        if (isProcess && std::getline(file, name) && name == "glidemap" &&
            number != std::to_string(getpid()) && stat(each->path().c_str(), &status) == 0 &&
            status.st_uid == getuid()) {
            processes += (processes.empty() ? "process " : ", process ") + number;
        }
    }
    return processes.empty() ? "not running" : processes;
}

void addVersions(ReportPage& page, const DiagnosisFacts& facts) {
    utsname kernel{};
    uname(&kernel);
    page.heading("Glidemap " + facts.version);
    page.fact("system", systemName());
    page.fact("kernel", std::string(kernel.sysname) + " " + kernel.release + " " + kernel.machine);
    page.fact("libraries", facts.toolkit + ", GLib " + std::to_string(glib_major_version) + "." +
                               std::to_string(glib_minor_version) + "." +
                               std::to_string(glib_micro_version));
    page.fact("started before", runningGlidemap());
    if (facts.isSwitchedOn) {
        page.fact("gestures", *facts.isSwitchedOn ? "switched on" : "switched off");
    }
}

std::string displaySocketOfX11(const std::string& display) {
    const std::size_t end = display.find('.');
    return display.starts_with(':') ? "/tmp/.X11-unix/X" + display.substr(1, end - 1) : "";
}

std::string displaySocketOfWayland(const std::string& display) {
    return display.empty() || display.front() == '/'
               ? display
               : fromEnvironment("XDG_RUNTIME_DIR") + "/" + display;
}

void addDisplay(ReportPage& page, const char* variable, const std::string& socket) {
    const std::string value = fromEnvironment(variable);
    std::string server = programListeningOn(socket);
    if (server.empty()) {
        server = programListeningOn("@" + socket);
    }
    page.fact(variable, value.empty()    ? ""
                        : server.empty() ? value + ", where no program listens"
                                         : value + ", served by " + server);
}

std::string stateOf(const Service& service, const Buses& buses) {
    const BusSurvey& bus = buses.of(service.bus);
    if (bus.state != BusSurvey::State::answered) {
        return "unknown";
    }
    return bus.running.contains(service.name)     ? "running"
           : bus.startable.contains(service.name) ? "can be started"
                                                  : "missing";
}

void addServices(ReportPage& page, const char* purpose, std::span<const Service> services,
                 const Buses& buses) {
    for (const Service& service : services) {
        page.fact(std::string(purpose) + ", " + service.name, stateOf(service, buses));
    }
}

void addSession(ReportPage& page, const Buses& buses) {
    page.heading("Session");
    for (const char* variable : {"XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "DESKTOP_SESSION"}) {
        page.fact(variable, fromEnvironment(variable));
    }
    addDisplay(page, "WAYLAND_DISPLAY", displaySocketOfWayland(fromEnvironment("WAYLAND_DISPLAY")));
    addDisplay(page, "DISPLAY", displaySocketOfX11(fromEnvironment("DISPLAY")));
    page.fact("session bus", nameOf(buses.session.state));
    page.fact("system bus", nameOf(buses.system.state));
    addServices(page, "compositor", compositors, buses);
}

void addTouchpads(ReportPage& page) {
    page.heading("Touchpads");
    const std::string path = touchDriverPlatform().libraryPath;
    page.fact("driver", path);
    void* const driver = dlopen(path.c_str(), RTLD_NOW);
    if (driver == nullptr) {
        page.fact("it cannot be loaded", dlerror()); // NOLINT(concurrency-mt-unsafe): main thread
        return;
    }
    const auto report =
        reinterpret_cast<driver::ReportDevices>(dlsym(driver, driver::reportDevicesSymbol));
    if (report == nullptr) {
        page.line("this driver reports no devices");
        return;
    }
    report([](void* onPage, const char* line) { static_cast<ReportPage*>(onPage)->line(line); },
           &page);
}

// Adds the fallback of an action if all services for it are missing. Adds nothing if a bus does not
// reply, because one of the services may be on that bus.
void addAction(ReportPage& page, const char* action, std::span<const Service> services,
               const Buses& buses, const char* otherwise) {
    const bool allMissing = std::ranges::all_of(services, [&buses](const Service& service) {
        return stateOf(service, buses) == "missing";
    });
    if (allMissing) {
        page.fact(action, otherwise);
    }
}

void addAllServices(ReportPage& page, const Buses& buses) {
    page.heading("Services");
    addServices(page, "status bar", statusBars, buses);
    addServices(page, "lock", locks, buses);
    addServices(page, "overview", overviews, buses);
    addAction(page, "locking the screen", locks, buses,
              "no service for it: Control, Super and Q are typed instead");
    addAction(page, "the overview", overviews, buses, "no service for it: nothing is shown");
    addServices(page, "appearance", portals, buses);
}

std::string countIn(const std::filesystem::path& file) {
    constexpr std::size_t maxBytes = 128UL * 1024 * 1024;
    const auto text = readFile(file, maxBytes);
    if (!text) {
        return access(file.c_str(), F_OK) == 0 ? "cannot be read"
                                               : std::generic_category().message(errno);
    }
    const auto decoded = decodeBindings(*text);
    if (const auto* failure = std::get_if<DecodingFailure>(&decoded)) {
        return "invalid, " + failure->reason;
    }
    return std::to_string(std::get<0>(decoded).size()) + " bindings";
}

std::string writableState(const std::filesystem::path& path) {
    return access(path.c_str(), W_OK) == 0
               ? "can be written"
               : "cannot be written: " + std::generic_category().message(errno);
}

void addBindings(ReportPage& page) {
    page.heading("Bindings");
    const std::filesystem::path file = userDataFolder() / "Glidemap" / "bindings.json";
    page.fact("file", file.string());
    page.fact("content", countIn(file));
    page.fact("folder", writableState(file.parent_path()));
}

} // namespace

std::string diagnosisPage(const DiagnosisFacts& facts) {
    ReportPage page(fromEnvironment("HOME"));
    auto system = std::async(std::launch::async, surveyBus, Bus::system, facts.patience);
    const BusSurvey session = surveyBus(Bus::session, facts.patience);
    const Buses buses{session, system.get()};
    addVersions(page, facts);
    addSession(page, buses);
    addTouchpads(page);
    addAllServices(page, buses);
    addBindings(page);
    return page.text();
}

} // namespace glidemap
