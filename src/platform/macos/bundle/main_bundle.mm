#include "platform/macos/bundle/main_bundle.h"

#include "platform/macos/autorelease_pool.h"
#include "platform/macos/foundation_text.h"

namespace glidemap {

// The value in Info.plist may be of any type.
std::optional<std::string> bundleShortVersion() {
    NSDictionary* const information = [[NSBundle mainBundle] infoDictionary];
    const id version = [information objectForKey:@"CFBundleShortVersionString"];
    return [version isKindOfClass:[NSString class]] ? textOf(version) : std::nullopt;
}

std::optional<std::string> programPath() {
    std::optional<std::string> path;
    withinAutoreleasePool([&path] { path = textOf([[NSBundle mainBundle] executablePath]); });
    return path;
}

} // namespace glidemap
