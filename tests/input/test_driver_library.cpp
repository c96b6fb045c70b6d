#include "test_driver_library.h"

#include <dlfcn.h>

namespace glidemap {

TouchDriverPlatform testDriver(const std::string& name) {
    return {TEST_DRIVER_FOLDER "/libtest-driver-" + name + ".so", [](void* handle) {
                return TouchDriverPlatform::ListAccess{
                    reinterpret_cast<driver::ListCount>(dlsym(handle, driver::listCountSymbol)),
                    reinterpret_cast<driver::ListValueAtIndex>(
                        dlsym(handle, driver::listValueAtIndexSymbol)),
                };
            }};
}

TestDriverLibrary::TestDriverLibrary(const MultitouchDeviceManager& manager)
    : readCalls(reinterpret_cast<decltype(readCalls)>(manager.optionalSymbol("TestDriverCalls"))),
      sendReport(
          reinterpret_cast<decltype(sendReport)>(manager.optionalSymbol("TestDriverReport"))),
      setAttached(
          reinterpret_cast<decltype(setAttached)>(manager.optionalSymbol("TestDriverAttach"))) {
    reinterpret_cast<void (*)()>(manager.optionalSymbol("TestDriverReset"))();
}

} // namespace glidemap
