#include "platform/macos/bundle/main_bundle.h"

#include "platform/macos/autorelease_pool.h"
#include "platform/macos/foundation_text.h"

namespace glidemap {

namespace {

// Checks the type, because a value in Info.plist can have any type.
std::optional<std::string> shortVersion() {
    NSDictionary* const information = [[NSBundle mainBundle] infoDictionary];
    const id version = [information objectForKey:@"CFBundleShortVersionString"];
    return [version isKindOfClass:[NSString class]] ? textOf(version) : std::nullopt;
}

} // namespace

// Uses its own autorelease pool, because the program also calls this before the event loop runs.
std::optional<std::string> bundleShortVersion() {
    std::optional<std::string> version;
    withinAutoreleasePool([&version] { version = shortVersion(); });
    return version;
}

std::optional<std::string> programPath() {
    std::optional<std::string> path;
    withinAutoreleasePool([&path] { path = textOf([[NSBundle mainBundle] executablePath]); });
    return path;
}

} // namespace glidemap
