#include "greet.h"

#include <cstdio>

// Says hello.
void greet(const char* name) {
    std::printf("Hello, %s\n", name);  // code, not a comment
}
