// A Mac's function behind assert has a name and arguments of its own. No guard: NDEBUG counts where it is included.
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
