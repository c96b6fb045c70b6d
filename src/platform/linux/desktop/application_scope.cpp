#include "platform/linux/desktop/application_scope.h"

#include "platform/linux/desktop/desktop_bus.h"

#include <gio/gio.h>

namespace glidemap {

namespace {

struct Move {
    std::string unit;
    pid_t process;
};

std::string escaped(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char character : text) {
        const bool plain = g_ascii_isalnum(character) != FALSE || character == '.' ||
                           character == '_' || character == ':';
        const auto byte = static_cast<unsigned char>(character);
        if (plain) {
            result.push_back(character);
        } else {
            result.append("\\x").append(1, digits[byte >> 4U]).append(1, digits[byte & 0xFU]);
        }
    }
    return result;
}

GVariant* startTransientUnit(const Move& move) {
    GVariantBuilder processes;
    g_variant_builder_init(&processes, G_VARIANT_TYPE("au"));
    g_variant_builder_add(&processes, "u", static_cast<guint32>(move.process));

    GVariantBuilder properties;
    g_variant_builder_init(&properties, G_VARIANT_TYPE("a(sv)"));
    g_variant_builder_add(&properties, "(sv)", "PIDs", g_variant_builder_end(&processes));
    g_variant_builder_add(&properties, "(sv)", "Slice", g_variant_new_string("app.slice"));
    g_variant_builder_add(&properties, "(sv)", "CollectMode",
                          g_variant_new_string("inactive-or-failed"));
    return g_variant_new("(ssa(sv)a(sa(sv)))", move.unit.c_str(), "fail", &properties, nullptr);
}

} // namespace

std::string scopeName(std::string_view identifier, pid_t process) {
    constexpr std::string_view suffix = ".desktop";
    if (identifier.ends_with(suffix)) {
        identifier.remove_suffix(suffix.size());
    }
    return "app-glidemap-" + escaped(identifier) + "-" + std::to_string(process) + ".scope";
}

void moveIntoScope(std::string_view identifier, pid_t process) {
    DesktopBus::withShared([move = Move{scopeName(identifier, process), process}](
                               const std::shared_ptr<DesktopBus>& bus) {
        if (bus == nullptr) {
            return;
        }
        // The pending call keeps the connection open until systemd has received the request.
        bus->call({"org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                   "org.freedesktop.systemd1.Manager"},
                  "StartTransientUnit", startTransientUnit(move),
                  [bus](GVariant* /*values*/, const GError* /*error*/) {});
    });
}

} // namespace glidemap
