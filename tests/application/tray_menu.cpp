#include "tray_menu.h"

#include "variant.h"

#include <gtest/gtest.h>

namespace glidemap::test {

namespace {

constexpr const char* menuInterface = "com.canonical.dbusmenu";
constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr int everyLevel = -1;

// Removes the underscores that mark mnemonics.
std::string withoutMarks(const std::string& label) {
    std::string plain;
    for (std::size_t index = 0; index < label.size(); ++index) {
        if (label[index] != '_' || (index + 1 < label.size() && label[++index] == '_')) {
            plain += label[index];
        }
    }
    return plain;
}

std::string joined(const OwnedVariant& shortcuts) {
    std::string text;
    const OwnedVariant keys = childOf(shortcuts, 0);
    for (std::size_t index = 0; index < g_variant_n_children(keys.get()); ++index) {
        text += (index > 0 ? "+" : "") + textOf(childOf(keys, index));
    }
    return text;
}

OwnedVariant looked(const OwnedVariant& properties, const char* name) {
    return OwnedVariant(g_variant_lookup_value(properties.get(), name, nullptr));
}

bool flag(const OwnedVariant& properties, const char* name, bool otherwise) {
    const OwnedVariant value = looked(properties, name);
    return value != nullptr ? g_variant_get_boolean(value.get()) != FALSE : otherwise;
}

MenuEntry entryIn(const OwnedVariant& item) {
    const OwnedVariant properties = childOf(item, 1);
    MenuEntry entry;
    entry.id = g_variant_get_int32(childOf(item, 0).get());
    entry.label = withoutMarks(textOf(looked(properties, "label")));
    entry.separator = textOf(looked(properties, "type")) == "separator";
    entry.checkable = !textOf(looked(properties, "toggle-type")).empty();
    const OwnedVariant state = looked(properties, "toggle-state");
    entry.checked = state != nullptr && g_variant_get_int32(state.get()) == 1;
    entry.enabled = flag(properties, "enabled", true);
    const OwnedVariant shortcuts = looked(properties, "shortcut");
    entry.shortcut =
        shortcuts != nullptr && g_variant_n_children(shortcuts.get()) > 0 ? joined(shortcuts) : "";
    return entry;
}

} // namespace

TrayMenu::TrayMenu(GDBusConnection* connection, const StatusHost::Item& item)
    : bus(connection), busName(item.busName),
      path(textOf(property(bus, {item.busName, item.path, itemInterface}, "Menu"))) {
    EXPECT_NE(path, "") << "the status item has no menu";
}

std::vector<MenuEntry> TrayMenu::open() const {
    const Callee menu{busName, path, menuInterface};
    EXPECT_NE(call(bus, menu, "AboutToShow", g_variant_new("(i)", 0)), nullptr);
    const OwnedVariant answer =
        call(bus, menu, "GetLayout", g_variant_new("(iias)", 0, everyLevel, nullptr));
    if (answer == nullptr) {
        ADD_FAILURE() << "the menu returns no layout";
        return {};
    }
    std::vector<MenuEntry> entries;
    const OwnedVariant items = childOf(childOf(answer, 1), 2);
    for (std::size_t index = 0; index < g_variant_n_children(items.get()); ++index) {
        const OwnedVariant item = childOf(items, index);
        if (flag(childOf(item, 1), "visible", true)) {
            entries.push_back(entryIn(item));
        }
    }
    return entries;
}

bool TrayMenu::choose(const std::string& label) const {
    for (const MenuEntry& entry : open()) {
        if (entry.label == label && entry.enabled) {
            return call(bus, {busName, path, menuInterface}, "Event",
                        g_variant_new("(isvu)", entry.id, "clicked", g_variant_new_string(""),
                                      0U)) != nullptr;
        }
    }
    return false;
}

std::vector<std::string> describe(const std::vector<MenuEntry>& entries) {
    std::vector<std::string> lines;
    for (const MenuEntry& entry : entries) {
        if (entry.separator) {
            lines.emplace_back("—");
            continue;
        }
        std::string line = entry.checkable ? (entry.checked ? "✓ " : "· ") : "";
        line += entry.enabled ? entry.label : "(" + entry.label + ")";
        lines.push_back(line + (entry.shortcut.empty() ? "" : " [" + entry.shortcut + "]"));
    }
    return lines;
}

} // namespace glidemap::test
