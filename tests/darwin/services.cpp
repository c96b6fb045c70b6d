// Links all services without calling them. The test checks only that linking succeeds and which
// symbols are used.
int main() {
    return 0;
}
