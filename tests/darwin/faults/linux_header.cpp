// expected: 'malloc.h' file not found
#include <malloc.h>
