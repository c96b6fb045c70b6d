#include "platform/macos/session/login_framework_lock.h"

#include <dlfcn.h>

#include <utility>

namespace glidemap {

LoginFrameworkLock::LoginFrameworkLock(std::string framework) : path(std::move(framework)) {}

bool LoginFrameworkLock::find() {
    if (void* handle = dlopen(path.c_str(), RTLD_NOW)) {
        lockScreen = reinterpret_cast<LockScreenImmediate>(dlsym(handle, "SACLockScreenImmediate"));
    }
    return lockScreen != nullptr;
}

void LoginFrameworkLock::lock(std::function<void()> /*otherwise*/) {
    lockScreen();
}

} // namespace glidemap
