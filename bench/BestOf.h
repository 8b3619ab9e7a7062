#pragma once
// Timing for the benchmarks: milliseconds since a moment, and the best of several runs, the
// figure the code can reach free of scheduling noise.
#include <algorithm>
#include <chrono>

namespace bench {

using Clock = std::chrono::steady_clock;

inline double ms(Clock::time_point since) {
    return std::chrono::duration<double, std::milli>(Clock::now() - since).count();
}

template <class F>
double best(int runs, F&& f) {
    double out = 1e300;
    for (int i = 0; i < runs; ++i) {
        const auto t = Clock::now();
        f();
        out = std::min(out, ms(t));
    }
    return out;
}

}  // namespace bench
