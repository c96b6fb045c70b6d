#include "platform/linux/windows/activation/xdg_activation.h"

#include "core/log.h"

#include <wayland-client-core.h>
#include <wayland-client-protocol.h>
#include <xdg-activation-v1-client-protocol.h>

#include <cstdint>
#include <list>
#include <string_view>
#include <utility>

namespace glidemap {

struct XdgActivation::State {
    // A request must not move in memory, because its event listener points to it.
    struct Request {
        State* owner;
        xdg_activation_token_v1* token;
        Receiver receiver;
        DesktopThread::Watch limit;
    };

    DesktopThread& thread;
    wl_display* display;
    std::chrono::milliseconds patience;
    wl_registry* registry;
    xdg_activation_v1* activation = nullptr;
    std::uint32_t activationName = 0; // in the registry
    std::string required;             // empty if no interface is required
    bool hasRequired = true;
    std::list<Request> requests;

    State(DesktopThread& runsOn, wl_display* connection, std::chrono::milliseconds limit)
        : thread(runsOn), display(connection), patience(limit),
          registry(wl_display_get_registry(connection)) {
        wl_registry_add_listener(registry, &registryListener, this);
    }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    ~State() {
        for (const Request& request : requests) {
            xdg_activation_token_v1_destroy(request.token);
        }
        endActivation();
        wl_registry_destroy(registry);
    }

    void endActivation() {
        if (activation != nullptr) {
            xdg_activation_v1_destroy(activation);
            activation = nullptr;
        }
    }

    void begin(const std::string& application, Receiver receiver) {
        Request& request =
            requests.emplace_back(Request{this, xdg_activation_v1_get_activation_token(activation),
                                          std::move(receiver), nullptr});
        xdg_activation_token_v1_add_listener(request.token, &tokenListener, &request);
        xdg_activation_token_v1_set_app_id(request.token, application.c_str());
        xdg_activation_token_v1_commit(request.token);
        request.limit = thread.after(patience, [&request] {
            logLine("windows", "the compositor has sent no activation token in time");
            request.owner->finish(request, "");
        });
        // If the socket is full, the request is sent after the next events, or its time runs out.
        wl_display_flush(display);
    }

    // Removes the request first, because the receiver may make another request.
    void finish(Request& request, const std::string& token) {
        const Receiver receiver = std::move(request.receiver);
        xdg_activation_token_v1_destroy(request.token);
        requests.remove_if([&](const Request& other) { return &other == &request; });
        receiver(token);
    }

    static const wl_registry_listener registryListener;
    static const xdg_activation_token_v1_listener tokenListener;
};

const wl_registry_listener XdgActivation::State::registryListener = {
    .global =
        [](void* data, wl_registry* offering, std::uint32_t name, const char* interface,
           std::uint32_t /*version*/) {
            auto& self = *static_cast<State*>(data);
            const wl_interface& wanted = xdg_activation_v1_interface;
            if (self.activation == nullptr && std::string_view(interface) == wanted.name) {
                self.activation =
                    static_cast<xdg_activation_v1*>(wl_registry_bind(offering, name, &wanted, 1));
                self.activationName = name;
            }
            self.hasRequired = self.hasRequired || self.required == interface;
        },
    .global_remove =
        [](void* data, wl_registry*, std::uint32_t name) {
            auto& self = *static_cast<State*>(data);
            if (name == self.activationName) {
                self.endActivation();
            }
        },
};

const xdg_activation_token_v1_listener XdgActivation::State::tokenListener = {
    .done =
        [](void* data, xdg_activation_token_v1*, const char* token) {
            auto& request = *static_cast<Request*>(data);
            request.owner->finish(request, token);
        },
};

XdgActivation::XdgActivation(DesktopThread& thread, WaylandDisplay* display,
                             std::chrono::milliseconds patience)
    : state(std::make_unique<State>(thread, display, patience)) {}

XdgActivation::~XdgActivation() = default;

void XdgActivation::requireInterface(std::string name) {
    state->required = std::move(name);
    state->hasRequired = false;
}

void XdgActivation::requestToken(const std::string& application, Receiver receiver) {
    if (state->activation == nullptr || !state->hasRequired) {
        receiver("");
        return;
    }
    state->begin(application, std::move(receiver));
}

// Ends the protocol first, so that a receiver cannot make another request.
void XdgActivation::abandonRequests() {
    state->endActivation();
    while (!state->requests.empty()) {
        state->finish(state->requests.front(), "");
    }
}

} // namespace glidemap
