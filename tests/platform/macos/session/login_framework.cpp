// A fake of the login framework, with the function or without it.
extern "C" {

// The test program exports it.
void noteInJournal(const char* line);

#ifndef WITHOUT_LOCK
__attribute__((visibility("default"))) int SACLockScreenImmediate();
int SACLockScreenImmediate() {
    noteInJournal("SACLockScreenImmediate");
    return -1; // ignored
}
#endif
}
