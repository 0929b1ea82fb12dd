#pragma once

#include <cstdio>

// A line for bench/compare, which prints it in its table: what was measured, Fennick's figure, the peer's,
// the unit.
inline void printRow(const char *what, double ours, double peers, const char *unit) {
    std::printf("%s\t%g\t%g\t%s\n", what, ours, peers, unit);
    std::fflush(stdout);
}
