#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "rename/left_runs.h"

/// A left run that puts back, one file a look at the events, all files but those with a reason.
struct FakeLeftRun : LeftRun {
  FakeLeftRun(Facts its_facts, std::vector<File> its_files)
      : facts(std::move(its_facts)), files(std::move(its_files)) {}

  const Facts& Told() const override { return facts; }
  std::vector<File> Files(std::size_t most) const override {
    const auto count = static_cast<std::ptrdiff_t>(std::min(most, files.size()));
    return {files.begin(), files.begin() + count};
  }
  bool PutBack(const Services& services, RunState& state) override {
    state.counts = {0, static_cast<std::int64_t>(files.size()), 0};
    std::vector<File> left;
    for (File& file : files) {
      if (!state.gCancelRequested) services.events.LetEventsRun();
      if (!state.gCancelRequested) {
        ++state.counts.passed;
        if (reasons.empty()) continue;
        file.problem = std::exchange(reasons, {}).front();
      }
      left.push_back(file);
    }
    files = left;
    facts.renamed = files.size();
    facts.work = Work::kPutBack;
    return !state.gCancelRequested;
  }
  bool Keep() override { return deletable; }

  Facts facts;
  std::vector<File> files;
  std::vector<int> reasons;  ///< why the first file can't be put back
  bool deletable = true;
};
