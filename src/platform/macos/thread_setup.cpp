#include "platform/macos/thread_setup.h"

#include <pthread.h>
#include <pthread/qos.h>

#include <string>

namespace glidemap {

namespace {

constexpr int relativePriority = 0; // relative to other threads with this quality of service

} // namespace

void nameThread(std::string_view name) {
    pthread_setname_np(std::string(name).c_str());
}

void setUpResponsiveThread(std::string_view name) {
    nameThread(name);
    pthread_set_qos_class_self_np(QOS_CLASS_USER_INTERACTIVE, relativePriority);
}

} // namespace glidemap
