#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// How long one run of something took, in microseconds, over many runs.
struct Timing {
    double median = 0;
    double slowestInAHundred = 0;  ///< the 99th percentile
};

/// Runs each of the operations in turn, many times over, so that what else the machine does hits
/// all of them alike. Stops after about `seconds` for each.
[[nodiscard]] std::vector<Timing> timeInTurn(const std::vector<std::function<void()>>& operations,
                                             double seconds = 1);

/// What the runs' times, in microseconds and at least one, amount to.
[[nodiscard]] Timing timingOf(std::vector<double> times);

/// Keeps the compiler from leaving out work whose result nobody uses.
void use(const void* result);

/// Prints a line: what it was, its median run, and its slowest in a hundred.
void print(const std::string& what, const Timing& timing);

/// Prints whether the slowest in a hundred stays within a number of microseconds.
void printWithin(const Timing& timing, double aim);

/// Prints by how many times the first is faster, and what is aimed at (0: nothing).
void printRatio(const Timing& ours, const Timing& plain, double aim);

}  // namespace bench
