#include "contract/contract.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <pthread/qos.h>

namespace glidemap::test {
namespace {

static_assert(QOS_CLASS_USER_INTERACTIVE == 0x21);

TEST(SystemLibraryContract, DeclaresInterfacesForThreads) {
    EXPECT_TRUE(isThere<int(const char*)>(&pthread_setname_np));
    EXPECT_TRUE((isThere<int(qos_class_t, int)>(&pthread_set_qos_class_self_np)));
}

TEST(SystemLibraryContract, DeclaresInterfacesForLoadingPrivateFrameworks) {
    EXPECT_TRUE((isThere<void*(const char*, int)>(&dlopen)));
    EXPECT_TRUE((isThere<void*(void*, const char*)>(&dlsym)));
    EXPECT_TRUE(isThere<char*()>(&dlerror));
}

} // namespace
} // namespace glidemap::test
