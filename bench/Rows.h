// What a benchmark says in the end: rows of a table, "| measure | value | limit | met |", which tools/bench.sh
// collects.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace bench {

enum class Limit { AtMost, Below };

// `unit` with a blank before it, or "" for a ratio or a count.
inline void row(const std::string& measure, double value, const char* unit, Limit kind, double limit) {
    const bool below = kind == Limit::Below, met = below ? value < limit : value <= limit;
    std::printf("| %s | %.2f%s | %s %g%s | %s |\n", measure.c_str(), value, unit, below ? "below" : "at most", limit,
                unit, met ? "yes" : "NO");
    std::fflush(stdout);
}

// A measure that did not do what it was to measure counts for nothing.
[[noreturn]] inline void fail(const std::string& why) {
    std::printf("%s\n", why.c_str());
    std::fflush(stdout);
    std::exit(1);
}

inline double seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

template <class Work>
double timeOf(Work&& work) {
    const double start = seconds();
    work();
    return seconds() - start;
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Medians of runs taken in turn. What else the machine does slows both of a pair, so the ratio is that of the pairs.
struct Compared {
    double ours, others, ratio;
};

// Either gives a time; `runs` is odd.
template <class Ours, class Others>
Compared compare(int runs, Ours&& ours, Others&& others) {
    std::vector<double> first, second, ratios;
    for (int run = 0; run < runs; ++run) {
        first.push_back(ours(run));
        second.push_back(others(run));
        ratios.push_back(first.back() / second.back());
    }
    return {median(first), median(second), median(ratios)};
}

}  // namespace bench
