#include "platform/macos/workspace/running_application.h"

#include "platform/macos/foundation_text.h"

namespace glidemap {

Application applicationOf(NSRunningApplication* running) {
    return {textOf([running bundleIdentifier]), textOf([running localizedName])};
}

} // namespace glidemap
