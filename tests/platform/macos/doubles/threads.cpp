#include "doubles/journal.h"

#include <pthread/qos.h>

#include <sstream>

using glidemap::test::note;

int pthread_setname_np(const char* name) {
    note("pthread_setname_np " + std::string(name));
    return 0;
}

int pthread_set_qos_class_self_np(qos_class_t qosClass, int relativePriority) {
    std::ostringstream line;
    line << "pthread_set_qos_class_self_np " << std::hex << std::showbase << qosClass << " "
         << std::dec << relativePriority;
    note(line.str());
    return 0;
}
