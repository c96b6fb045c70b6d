#include "platform/linux/windows/activation/fake_activation.h"

#include "kit/patience.h"
#include "platform/linux/windows/wlr/fake_compositor.h"

#include <gtest/gtest.h>
#include <wayland-server.h>
#include <xdg-activation-v1-server-protocol.h>

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <iterator>
#include <list>
#include <mutex>

namespace glidemap {

struct FakeActivation::State {
    // A request must not move in memory, because its resource points to it.
    struct Request {
        State* owner;
        wl_resource* resource; // null once the client has destroyed it
        std::vector<std::string> arguments = {""};
    };

    std::list<Request> requests; // used only on the compositor's thread
    std::mutex mutex;
    std::condition_variable arrived;
    bool hasClient = false;
    std::vector<std::vector<std::string>> unread;

    void create(wl_client* client, std::uint32_t identifier) {
        Request& request = requests.emplace_back(Request{
            this, wl_resource_create(client, &xdg_activation_token_v1_interface, 1, identifier)});
        wl_resource_set_implementation(
            request.resource, &tokenRequests, &request,
            [](wl_resource* gone) { requestOf(gone).resource = nullptr; });
    }

    void commit(const Request& request) {
        const std::lock_guard lock(mutex);
        unread.push_back(request.arguments);
        arrived.notify_one();
    }

    void bind(wl_client* client, std::uint32_t identifier) {
        wl_resource* const made =
            wl_resource_create(client, &xdg_activation_v1_interface, 1, identifier);
        wl_resource_set_implementation(made, &activationRequests, this, nullptr);
        const std::lock_guard lock(mutex);
        hasClient = true;
        arrived.notify_one();
    }

    static Request& requestOf(wl_resource* resource) {
        return *static_cast<Request*>(wl_resource_get_user_data(resource));
    }

    static const struct xdg_activation_token_v1_interface tokenRequests;
    static const struct xdg_activation_v1_interface activationRequests;
};

const struct xdg_activation_token_v1_interface FakeActivation::State::tokenRequests = {
    .set_serial = [](wl_client*, wl_resource* token, std::uint32_t,
                     wl_resource*) { requestOf(token).arguments.emplace_back("serial"); },
    .set_app_id = [](wl_client*, wl_resource* token,
                     const char* text) { requestOf(token).arguments.front() = text; },
    .set_surface = [](wl_client*, wl_resource* token,
                      wl_resource*) { requestOf(token).arguments.emplace_back("surface"); },
    .commit = [](wl_client*,
                 wl_resource* token) { requestOf(token).owner->commit(requestOf(token)); },
    .destroy = [](wl_client*, wl_resource* token) { wl_resource_destroy(token); },
};

const struct xdg_activation_v1_interface FakeActivation::State::activationRequests = {
    .destroy = [](wl_client*, wl_resource* activation) { wl_resource_destroy(activation); },
    .get_activation_token =
        [](wl_client* client, wl_resource* activation, std::uint32_t identifier) {
            static_cast<State*>(wl_resource_get_user_data(activation))->create(client, identifier);
        },
    .activate = [](wl_client*, wl_resource*, const char*,
                   wl_resource*) { ADD_FAILURE() << "the client has no window to activate"; },
};

FakeActivation::FakeActivation() : state(std::make_unique<State>()) {}

FakeActivation::~FakeActivation() = default;

void FakeActivation::offerOn(FakeCompositor& compositor) {
    compositor.say([&] {
        wl_global_create(compositor.serving(), &xdg_activation_v1_interface, 1, state.get(),
                         [](wl_client* client, void* self, std::uint32_t, std::uint32_t id) {
                             static_cast<State*>(self)->bind(client, id);
                         });
    });
}

void FakeActivation::offerInterface(FakeCompositor& compositor, const wl_interface& interface) {
    compositor.say([&] {
        wl_global_create(compositor.serving(), &interface, 1, nullptr,
                         [](wl_client*, void*, std::uint32_t, std::uint32_t) {});
    });
}

void FakeActivation::waitForClient() {
    std::unique_lock lock(state->mutex);
    EXPECT_TRUE(state->arrived.wait_for(lock, test::patience, [this] { return state->hasClient; }));
}

std::vector<std::string> FakeActivation::nextRequest() {
    std::unique_lock lock(state->mutex);
    if (!state->arrived.wait_for(lock, test::patience, [this] { return !state->unread.empty(); })) {
        ADD_FAILURE() << "no request for a token has arrived";
        return {};
    }
    std::vector<std::string> arguments = state->unread.front();
    state->unread.erase(state->unread.begin());
    return arguments;
}

void FakeActivation::reply(FakeCompositor& compositor, std::size_t request,
                           const std::string& token) {
    compositor.say([&] {
        ASSERT_LT(request, state->requests.size());
        wl_resource* const open =
            std::next(state->requests.begin(), static_cast<std::ptrdiff_t>(request))->resource;
        if (open != nullptr) {
            xdg_activation_token_v1_send_done(open, token.c_str());
        }
    });
}

std::size_t FakeActivation::openRequests(FakeCompositor& compositor) const {
    std::size_t count = 0;
    compositor.say([&] {
        count = static_cast<std::size_t>(
            std::ranges::count_if(state->requests, [](const State::Request& request) {
                return request.resource != nullptr;
            }));
    });
    return count;
}

} // namespace glidemap
