// The UUID functions, which are in the system library of macOS.
#pragma once

#ifdef __cplusplus
extern "C" {
#endif
typedef unsigned char uuid_t[16];
typedef char uuid_string_t[37];
void uuid_generate_random(uuid_t made);
int uuid_parse(const char* text, uuid_t parsed);
void uuid_unparse_upper(const uuid_t bytes, char* text);
#ifdef __cplusplus
}
#endif
