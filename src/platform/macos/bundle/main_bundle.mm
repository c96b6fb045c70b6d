#include "platform/macos/bundle/main_bundle.h"

#include "platform/macos/autorelease_pool.h"
#include "platform/macos/foundation_text.h"

namespace glidemap {

namespace {

// Whoever has written the information may have written anything.
std::optional<std::string> shortVersion() {
    NSDictionary* const information = [[NSBundle mainBundle] infoDictionary];
    const id version = [information objectForKey:@"CFBundleShortVersionString"];
    return [version isKindOfClass:[NSString class]] ? textOf(version) : std::nullopt;
}

} // namespace

// With pools of their own: the program asks before there is an event loop, too.
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
