// Stands in for the login framework, with the function or without.
extern "C" {

// The test program's.
void noteInJournal(const char* line);

#ifndef WITHOUT_LOCK
__attribute__((visibility("default"))) int SACLockScreenImmediate();
int SACLockScreenImmediate() {
    noteInJournal("SACLockScreenImmediate");
    return -1; // which nobody looks at
}
#endif
}
