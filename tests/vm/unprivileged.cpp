#include "unprivileged.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace glidemap::test {

namespace {

constexpr auto unchanged = static_cast<uid_t>(-1);

void become(uid_t user) {
    if (syscall(SYS_setresuid, unchanged, user, unchanged) != 0) {
        ADD_FAILURE() << "cannot become user " << user;
    }
}

} // namespace

Unprivileged::Unprivileged() {
    become(unprivilegedUser);
}

Unprivileged::~Unprivileged() {
    become(0);
}

} // namespace glidemap::test
