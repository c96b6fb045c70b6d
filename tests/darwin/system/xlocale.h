// The locale functions of macOS that the C++ library calls.
#pragma once

#include <ctype.h>
#include <locale.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <wchar.h>
#include <wctype.h>

#ifdef __cplusplus
extern "C" {
#endif

#define MB_CUR_MAX_L(locale) 4
wint_t btowc_l(int character, locale_t locale);
int wctob_l(wint_t character, locale_t locale);
size_t wcsnrtombs_l(char*, const wchar_t**, size_t, size_t, mbstate_t*, locale_t);
size_t wcrtomb_l(char*, wchar_t, mbstate_t*, locale_t);
size_t mbsnrtowcs_l(wchar_t*, const char**, size_t, size_t, mbstate_t*, locale_t);
size_t mbrtowc_l(wchar_t*, const char*, size_t, mbstate_t*, locale_t);
int mbtowc_l(wchar_t*, const char*, size_t, locale_t);
size_t mbrlen_l(const char*, size_t, mbstate_t*, locale_t);
struct lconv* localeconv_l(locale_t);
size_t mbsrtowcs_l(wchar_t*, const char**, size_t, mbstate_t*, locale_t);
int snprintf_l(char*, size_t, locale_t, const char*, ...);
int asprintf_l(char**, locale_t, const char*, ...);
int sscanf_l(const char*, locale_t, const char*, ...);
int vsnprintf_l(char*, size_t, locale_t, const char*, va_list);
int vasprintf_l(char**, locale_t, const char*, va_list);
float strtof_l(const char*, char**, locale_t);
double strtod_l(const char*, char**, locale_t);
long double strtold_l(const char*, char**, locale_t);
long long strtoll_l(const char*, char**, int, locale_t);
unsigned long long strtoull_l(const char*, char**, int, locale_t);

#ifdef __cplusplus
}
#endif
