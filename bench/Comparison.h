#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <vector>

namespace vtr {

/// Seconds that work takes.
template <typename Work>
double SecondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Comparison {
    double ours = std::numeric_limits<double>::max();  ///< seconds
    double baseline = std::numeric_limits<double>::max();
};

/// Runs both in turn, so that other load on the machine slows both. Keeps the shortest time of each.
template <typename Ours, typename Baseline>
Comparison Compare(int runs, Ours ours, Baseline baseline) {
    Comparison shortest;
    for (int run = 0; run < runs; ++run) {
        shortest.baseline = std::min(shortest.baseline, SecondsOf(baseline));
        shortest.ours = std::min(shortest.ours, SecondsOf(ours));
    }
    return shortest;
}

/// The same with the median of each, for work that waits for the disk: there the shortest time is luck.
template <typename Ours, typename Baseline>
Comparison CompareMedians(int runs, Ours ours, Baseline baseline) {
    std::vector<double> oursTimes;
    std::vector<double> baselineTimes;
    for (int run = 0; run < runs; ++run) {
        baselineTimes.push_back(SecondsOf(baseline));
        oursTimes.push_back(SecondsOf(ours));
    }
    const auto median = [](std::vector<double> &times) {
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    };
    return {median(oursTimes), median(baselineTimes)};
}

/// "what: 120.0 us, baseline 20.0 us: 6.00 times as long (wanted: at most 8)"
inline void ReportAtMost(const char *what, const Comparison &times, const char *baseline, double wanted) {
    std::printf("%s: %.1f us, %s %.1f us: %.2f times as long (wanted: at most %g)\n", what, times.ours * 1e6,
                baseline, times.baseline * 1e6, times.ours / times.baseline, wanted);
}

/// "what: 20.0 us, baseline 120.0 us: 6.00 times as fast (wanted: at least 2)"
inline void ReportAtLeast(const char *what, const Comparison &times, const char *baseline, double wanted) {
    std::printf("%s: %.1f us, %s %.1f us: %.2f times as fast (wanted: at least %g)\n", what, times.ours * 1e6,
                baseline, times.baseline * 1e6, times.baseline / times.ours, wanted);
}

}  // namespace vtr
