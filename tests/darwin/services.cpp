// A program that holds every service and calls none of them: it is there to be linked, and to be looked at.
int main() {
    return 0;
}
