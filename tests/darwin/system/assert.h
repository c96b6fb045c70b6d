// On a Mac assert() calls a function with another name and other arguments. No include guard,
// because NDEBUG may change.
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
