#include "platform/linux/windows/x11/x11_requests.h"

#include <xcb/res.h>
#include <xcb/xcbext.h>

#include <utility>

namespace glidemap {

namespace {

X11Property propertyIn(void* answer, const xcb_generic_error_t* error) {
    X11Property property;
    property.windowIsGone = error != nullptr && error->error_code == XCB_WINDOW;
    const auto* const reply = static_cast<const xcb_get_property_reply_t*>(answer);
    if (reply == nullptr) {
        return property;
    }
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply));
    const void* const value = xcb_get_property_value(reply);
    if (reply->format == 8) {
        property.text.assign(static_cast<const char*>(value), length);
    } else if (reply->format == 32) {
        property.hasItems = true;
        const auto* const items = static_cast<const std::uint32_t*>(value);
        property.items.assign(items, items + length / sizeof(std::uint32_t));
    }
    return property;
}

std::uint32_t processIn(void* answer) {
    const auto* const reply = static_cast<const xcb_res_query_client_ids_reply_t*>(answer);
    if (reply == nullptr) {
        return 0;
    }
    auto identifier = xcb_res_query_client_ids_ids_iterator(reply);
    for (; identifier.rem > 0; xcb_res_client_id_value_next(&identifier)) {
        const bool process =
            (identifier.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (process && xcb_res_client_id_value_value_length(identifier.data) > 0) {
            return *xcb_res_client_id_value_value(identifier.data);
        }
    }
    return 0;
}

bool reportsProcesses(const X11Connection& server) {
    const auto* const extension = xcb_get_extension_data(server.raw(), &xcb_res_id);
    if (extension == nullptr || extension->present == 0) {
        return false;
    }
    const auto version =
        server.reply(xcb_res_query_version_reply, xcb_res_query_version(server.raw(), 1, 2));
    return version != nullptr && (version->server_major > 1 ||
                                  (version->server_major == 1 && version->server_minor >= 2));
}

} // namespace

X11Requests::X11Requests(X11Connection connection)
    : connection(std::move(connection)), knowsProcesses(reportsProcesses(this->connection)) {}

void X11Requests::property(xcb_window_t window, xcb_atom_t name, std::uint32_t items,
                           PropertyTaker taker) {
    const auto cookie =
        xcb_get_property(connection.raw(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, items);
    expect(cookie.sequence, [take = std::move(taker)](void* answer, xcb_generic_error_t* error) {
        take(propertyIn(answer, error));
    });
}

void X11Requests::processOf(xcb_window_t window, ProcessTaker taker) {
    if (!knowsProcesses) {
        taker(0);
        return;
    }
    const xcb_res_client_id_spec_t asked = {window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const auto cookie = xcb_res_query_client_ids(connection.raw(), 1, &asked);
    expect(cookie.sequence,
           [take = std::move(taker)](void* answer, xcb_generic_error_t* /*error*/) {
               take(processIn(answer));
           });
}

void X11Requests::followProperties(xcb_window_t window) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection.raw(), window, XCB_CW_EVENT_MASK, &events);
}

void X11Requests::expect(std::uint32_t sequence, Taker taker) {
    pending.push_back({sequence, std::move(taker)});
}

bool X11Requests::takeReply() {
    if (pending.empty() || connection.isLost()) {
        return false;
    }
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(connection.raw(), pending.front().sequence, &reply, &error) == 0) {
        return false;
    }
    const X11Reply<void> ownedReply(reply);
    const X11Reply<void> ownedError(error);
    const Taker taker = std::move(pending.front().taker);
    pending.pop_front();
    taker(reply, error);
    return true;
}

} // namespace glidemap
