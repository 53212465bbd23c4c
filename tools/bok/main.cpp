#if defined(_WIN32)
int wmain() { return 2; }
#else
int main() { return 2; }
#endif
