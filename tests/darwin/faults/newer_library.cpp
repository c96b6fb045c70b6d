// expected: is unavailable: introduced in macOS 13.
#include <charconv>

char* write(char* first, char* last) {
    return std::to_chars(first, last, 0.5).ptr;
}
