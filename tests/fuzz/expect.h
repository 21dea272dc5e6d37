// What cannot be right ends the program, so that the input is kept.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void expect(bool held, const char* promise) {
    if (held) return;
    std::fprintf(stderr, "broken: %s\n", promise);
    std::abort();
}
