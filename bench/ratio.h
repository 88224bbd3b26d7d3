#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/// Measures one piece of work beside the least that the system needs for it, in the same run, so
/// that the figure means the same on every machine.
namespace bench {

/// Seconds that `work` takes.
template <class Work>
double Seconds(Work&& work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The times of both sides, taken in turns: each round gives each side one time.
class Ratio {
 public:
  /// `aim` is the ratio not to be exceeded, `count` the number of equal steps in the work.
  Ratio(const char* name, double aim, long count) : name_(name), aim_(aim), count_(count) {}

  template <class Ours, class Floor>
  void Round(Ours&& ours, Floor&& floor) {
    const double our_time = Seconds(ours);
    Add(our_time, Seconds(floor));
  }

  /// A round measured elsewhere, in seconds.
  void Add(double ours, double floor) {
    ours_.push_back(ours);
    floor_.push_back(floor);
  }

  /// Prints the medians a step and their ratio; true when the aim is met.
  bool Print() const {
    const double ours = Median(ours_);
    const double floor = Median(floor_);
    const double ratio = floor > 0 ? ours / floor : 0;
    const double micro = 1e6 / static_cast<double>(count_);
    std::printf("%-34s %9.3f us %9.3f us  ratio %5.2f  aim %4.2f  %s\n", name_, ours * micro,
                floor * micro, ratio, aim_, ratio <= aim_ ? "met" : "MISSED");
    std::fflush(stdout);
    return ratio <= aim_;
  }

 private:
  static double Median(std::vector<double> times) {
    if (times.empty()) return 0;
    const auto middle = times.begin() + static_cast<long>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
  }

  const char* name_;
  double aim_;
  long count_;
  std::vector<double> ours_;
  std::vector<double> floor_;
};

}  // namespace bench
