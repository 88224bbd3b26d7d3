#pragma once

#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "ratio.h"

/// Measures the steps of one long job over rows: the time of each, the longest time in it without
/// an answer, and the memory of the whole program, in use after it and at its peak.
namespace bench {

/// In use now, in megabytes.
inline double UsedMegabytes() {
  long pages = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// The most in use since `ForgetPeak`; see proc(5), clear_refs of the kernel.
inline double PeakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
  }
  return 0;
}
inline void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

/// Seconds that the thread has had of the processor, which mean something on a busy machine too.
inline double ProcessorSeconds() {
  struct timespec used = {};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
  return static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9;
}

class Steps {
 public:
  Steps(const char* title, std::size_t rows) : rows_(rows), begin_mb_(UsedMegabytes()) {
    std::printf("\n%-34s %8s %8s %9s %8s %9s %8s %8s\n", title, "ms", "cpu ms", "ns a row",
                "silent", "of it cpu", "MB", "MB peak");
  }

  std::size_t Rows() const { return rows_; }

  /// To be told whenever events run.
  void Answer() {
    const auto now = std::chrono::steady_clock::now();
    const double cpu = ProcessorSeconds();
    silence_ = std::max(silence_, std::chrono::duration<double>(now - last_).count());
    silence_cpu_ = std::max(silence_cpu_, cpu - last_cpu_);
    last_ = now;
    last_cpu_ = cpu;
  }

  /// Does one step and prints what it took.
  template <class Work>
  void Do(const std::string& what, Work&& work) {
    ForgetPeak();
    last_ = std::chrono::steady_clock::now();
    const double begin_cpu = last_cpu_ = ProcessorSeconds();
    silence_ = silence_cpu_ = 0;
    const double seconds = Seconds(work);
    Answer();
    const double used = UsedMegabytes();
    most_mb_ = std::max(most_mb_, used);
    times_.emplace_back(what, 1e9 * (last_cpu_ - begin_cpu) / static_cast<double>(rows_));
    std::printf("%-34s %8.0f %8.0f %9.0f %8.1f %9.1f %8.0f %8.0f\n", what.c_str(), 1000 * seconds,
                1000 * (last_cpu_ - begin_cpu), 1e9 * seconds / static_cast<double>(rows_),
                1000 * silence_, 1000 * silence_cpu_, used, PeakMegabytes());
    std::fflush(stdout);
  }

  /// Each step and the nanoseconds of the processor that it took a row.
  const std::vector<std::pair<std::string, double>>& Times() const { return times_; }

  /// The most in use after any step, less what was in use before the first.
  double BytesARow() const {
    return (most_mb_ - begin_mb_) * (1 << 20) / static_cast<double>(rows_);
  }

 private:
  const std::size_t rows_;
  const double begin_mb_;
  double most_mb_ = 0;
  double silence_ = 0;
  double silence_cpu_ = 0;
  double last_cpu_ = 0;
  std::chrono::steady_clock::time_point last_;
  std::vector<std::pair<std::string, double>> times_;
};

}  // namespace bench
