// A program that links every service and calls none: only linking and its symbols are checked.
int main() {
    return 0;
}
