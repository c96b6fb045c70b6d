#include "accessibility.h"

#include "variant.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <sstream>

namespace glidemap::test {

namespace {

// State bits of a control, numbered as in AT-SPI.
constexpr int checkedState = 4;
constexpr int enabledState = 8;
constexpr int focusableState = 11;
constexpr int focusedState = 12;
constexpr int showingState = 25;
constexpr int visibleState = 30;

constexpr unsigned labelledBy = 2; // relation type

constexpr const char* rootPath = "/org/a11y/atspi/accessible/root";
constexpr const char* accessibleInterface = "org.a11y.atspi.Accessible";
constexpr int deepest = 40; // maximum depth in a window; protects against cycles in the tree
constexpr unsigned screenCoordinates = 0;

const Callee registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                      "org.a11y.atspi.Registry"};

void ignoreEvent(GDBusConnection* /*connection*/, const char* /*sender*/, const char* /*path*/,
                 const char* /*interface*/, const char* /*signal*/, GVariant* /*values*/,
                 gpointer /*nothing*/) {}

using Address = std::pair<std::string, std::string>;

std::vector<Address> childrenOf(GDBusConnection* bus, const Address& parent) {
    std::vector<Address> children;
    const OwnedVariant answer =
        call(bus, {parent.first, parent.second, accessibleInterface}, "GetChildren");
    if (answer == nullptr) {
        return children;
    }
    const OwnedVariant list = childOf(answer, 0);
    for (std::size_t index = 0; index < g_variant_n_children(list.get()); ++index) {
        const OwnedVariant each = childOf(list, index);
        children.emplace_back(textOf(childOf(each, 0)), textOf(childOf(each, 1)));
    }
    return children;
}

std::uint64_t statesIn(const OwnedVariant& answer) {
    const OwnedVariant words = childOf(answer, 0);
    std::uint64_t states = 0;
    for (std::size_t index = 0; index < g_variant_n_children(words.get()); ++index) {
        const std::uint64_t word = g_variant_get_uint32(childOf(words, index).get());
        states |= word << (32 * index);
    }
    return states;
}

// Returns the name of the control that labels the given control.
std::string labelOf(GDBusConnection* bus, const Callee& callee) {
    const OwnedVariant answer = call(bus, callee, "GetRelationSet");
    if (answer == nullptr) {
        return {};
    }
    const OwnedVariant relations = childOf(answer, 0);
    for (std::size_t index = 0; index < g_variant_n_children(relations.get()); ++index) {
        const OwnedVariant each = childOf(relations, index);
        const OwnedVariant targets = childOf(each, 1);
        if (g_variant_get_uint32(childOf(each, 0).get()) == labelledBy &&
            g_variant_n_children(targets.get()) > 0) {
            const OwnedVariant target = childOf(targets, 0);
            return textOf(property(
                bus, {textOf(childOf(target, 0)), textOf(childOf(target, 1)), accessibleInterface},
                "Name"));
        }
    }
    return {};
}

Rectangle areaIn(const OwnedVariant& answer) {
    Rectangle area;
    if (answer != nullptr) {
        g_variant_get(answer.get(), "((iiii))", &area.x, &area.y, &area.width, &area.height);
    }
    return area;
}

} // namespace

bool Control::isVisible() const {
    return is(visibleState) && is(showingState);
}

bool Control::isChecked() const {
    return is(checkedState);
}

bool Control::isEnabled() const {
    return is(enabledState);
}

bool Control::isFocusable() const {
    return is(focusableState);
}

bool Control::isFocused() const {
    return is(focusedState);
}

std::string describe(const Control& control) {
    std::ostringstream line;
    line << std::string(static_cast<std::size_t>(control.depth) * 2, ' ') << control.role << " \""
         << control.name << '"';
    if (!control.label.empty()) {
        line << " labelled \"" << control.label << '"';
    }
    if (!control.description.empty()) {
        line << " (" << control.description << ')';
    }
    if (!control.text.empty()) {
        line << " = \"" << control.text << '"';
    }
    line << (control.isVisible() ? "" : " hidden") << (control.isEnabled() ? "" : " disabled")
         << (control.isFocusable() ? " focusable" : "") << (control.isFocused() ? " focused" : "")
         << (control.isChecked() ? " checked" : "") << " at " << control.area.x << ','
         << control.area.y << ' ' << control.area.width << 'x' << control.area.height;
    return line.str();
}

Accessibility::Accessibility(const PrivateBus& session, const Program::Command& command)
    : launcher(command) {
    session.waitForName("org.a11y.Bus");
    const OwnedVariant answer =
        call(session.connection(), {"org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus"}, "GetAddress");
    if (answer == nullptr) {
        ADD_FAILURE() << "there is no accessibility bus";
        return;
    }
    connect(textOf(childOf(answer, 0)));
}

Accessibility::~Accessibility() {
    if (connection != nullptr) {
        g_dbus_connection_close_sync(connection, nullptr, nullptr);
        g_object_unref(connection);
    }
}

// Registers for accessibility events, because waitUntil() evaluates its condition on each event.
// Programs emit events only to registered listeners.
void Accessibility::connect(const std::string& address) {
    constexpr auto asClient =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection = g_dbus_connection_new_for_address_sync(address.c_str(), asClient, nullptr, nullptr,
                                                        nullptr);
    ASSERT_NE(connection, nullptr) << "the accessibility bus does not respond at " << address;
    g_dbus_connection_signal_subscribe(connection, nullptr, "org.a11y.atspi.Event.Object", nullptr,
                                       nullptr, nullptr, G_DBUS_SIGNAL_FLAGS_NONE, ignoreEvent,
                                       nullptr, nullptr);
    EXPECT_NE(call(connection, registry, "RegisterEvent",
                   g_variant_new("(sas@s)", "object:", nullptr, g_variant_new_string(""))),
              nullptr)
        << "the accessibility registry does not respond";
}

std::string Accessibility::busNameOf(pid_t process) const {
    for (const auto& [name, path] : childrenOf(connection, {registry.name, rootPath})) {
        const OwnedVariant answer = call(
            connection, {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"},
            "GetConnectionUnixProcessID", g_variant_new("(s)", name.c_str()));
        if (answer != nullptr &&
            g_variant_get_uint32(childOf(answer, 0).get()) == static_cast<unsigned>(process)) {
            return name;
        }
    }
    return {};
}

std::optional<Control> Accessibility::read(const std::string& busName,
                                           const std::string& path) const {
    const Callee callee{busName, path, accessibleInterface};
    const OwnedVariant states = call(connection, callee, "GetState");
    const OwnedVariant role = call(connection, callee, "GetRoleName");
    if (states == nullptr || role == nullptr) {
        return std::nullopt;
    }
    Control control;
    control.busName = busName;
    control.path = path;
    control.role = textOf(childOf(role, 0));
    control.states = statesIn(states);
    control.name = textOf(property(connection, callee, "Name"));
    control.description = textOf(property(connection, callee, "Description"));
    control.label = control.isFocusable() ? labelOf(connection, callee) : "";
    control.area = areaIn(call(connection, {busName, path, "org.a11y.atspi.Component"},
                               "GetExtents", g_variant_new("(u)", screenCoordinates)));
    if (control.role == "text") {
        const OwnedVariant text = call(connection, {busName, path, "org.a11y.atspi.Text"},
                                       "GetText", g_variant_new("(ii)", 0, -1));
        control.text = text != nullptr ? textOf(childOf(text, 0)) : "";
    }
    return control;
}

void Accessibility::readBelow(const Control& parent, Controls& found) const {
    if (parent.depth > deepest) {
        ADD_FAILURE() << "endless tree of controls below " << describe(parent);
        return;
    }
    for (const auto& [name, path] : childrenOf(connection, {parent.busName, parent.path})) {
        if (std::optional<Control> child = read(name, path)) {
            child->depth = parent.depth + 1;
            if (child->isVisible()) {
                found.push_back(*child);
                readBelow(*child, found);
            }
        }
    }
}

Controls Accessibility::controlsOf(pid_t process) const {
    Controls found;
    Control program;
    program.busName = busNameOf(process);
    program.path = rootPath;
    program.depth = -1;
    if (!program.busName.empty()) {
        readBelow(program, found);
    }
    return found;
}

bool Accessibility::act(const Control& control) const {
    const OwnedVariant answer =
        call(connection, {control.busName, control.path, "org.a11y.atspi.Action"}, "DoAction",
             g_variant_new("(i)", 0));
    return answer != nullptr && g_variant_get_boolean(childOf(answer, 0).get()) != FALSE;
}

std::string Accessibility::keysOf(const Control& control) const {
    const OwnedVariant answer =
        call(connection, {control.busName, control.path, "org.a11y.atspi.Action"}, "GetKeyBinding",
             g_variant_new("(i)", 0));
    return answer != nullptr ? textOf(childOf(answer, 0)) : "";
}

} // namespace glidemap::test
