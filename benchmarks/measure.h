// Times of two pieces of work, measured in turn so that a machine whose speed drifts is fair to
// both, and shown as their ratio.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace varno {

template <class Work>
double Seconds(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// `allowed`: the ratio that the work must not exceed.
inline void Report(const char* what, double ours, double theirs, double allowed,
                   const char* unit = "ms", double scale = 1000) {
    const double ratio = ours / theirs;
    std::printf("%-46s %8.2f %s / %8.2f %s = %5.2f  (at most %.2f)%s\n", what, ours * scale, unit,
                theirs * scale, unit, ratio, allowed, ratio <= allowed ? "" : "  TOO MUCH");
}

template <class Ours, class Theirs>
void Compare(const char* what, int rounds, double allowed, Ours&& ours, Theirs&& theirs) {
    std::vector<double> a;
    std::vector<double> b;
    for (int round = 0; round < rounds; ++round) {
        a.push_back(Seconds(ours));
        b.push_back(Seconds(theirs));
    }
    Report(what, Median(a), Median(b), allowed);
}

}  // namespace varno
