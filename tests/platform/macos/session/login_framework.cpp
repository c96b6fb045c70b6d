// A fake login framework, with or without the lock function.
extern "C" {

// The test program exports this function.
void noteInJournal(const char* line);

#ifndef WITHOUT_LOCK
__attribute__((visibility("default"))) int SACLockScreenImmediate();
int SACLockScreenImmediate() {
    noteInJournal("SACLockScreenImmediate");
    return -1; // the program ignores the result
}
#endif
}
