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

/// Prints how something measured up to its goal, and in a word whether that is met. It is a line of
/// its own with the name of what was measured, since scripts/bench gathers the lines of those that
/// were missed.
void printGoal(const std::string& what, const std::string& goal, bool isMet);
/// The same, with how many times the goal it took.
void printGoal(const std::string& what, const std::string& goal, double timesTheGoal);

/// Prints a line as `print` does, and that its slowest in a hundred is to stay within a number of
/// microseconds.
void printWithin(const std::string& what, const Timing& timing, double goal);

/// Prints by how many times the first is faster.
void printRatio(const Timing& ours, const Timing& plain);
/// The same where it is to be so many times as fast.
void printRatio(const std::string& what, const Timing& ours, const Timing& plain, double goal);

}  // namespace bench
