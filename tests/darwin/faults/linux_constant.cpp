// expected: use of undeclared identifier 'SOCK_CLOEXEC'
#include <sys/socket.h>

int open() {
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}
