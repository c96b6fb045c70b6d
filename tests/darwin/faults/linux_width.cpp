// expected: static assertion failed
#include <cstdint>
#include <type_traits>

static_assert(std::is_same_v<std::int64_t, long>);
