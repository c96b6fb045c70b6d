// On macOS, assert() calls a function whose name and arguments differ from musl's. Like every
// assert.h, this header has no include guard, because NDEBUG may change between two includes.
#undef assert
#ifdef NDEBUG
#define assert(expression) ((void)0)
#else
#ifdef __cplusplus
extern "C" {
#endif
__attribute__((noreturn)) void __assert_rtn(const char* function, const char* file, int line,
                                            const char* text);
#ifdef __cplusplus
}
#endif
#define assert(expression)                                                                         \
    ((expression) ? (void)0 : __assert_rtn(__func__, __FILE__, __LINE__, #expression))
#endif
