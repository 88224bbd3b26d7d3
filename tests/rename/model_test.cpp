#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "rename/model_case.h"

// The passes against the plain model, in random cases. QUORVANE_MODEL_CASES is the number of cases
// of each test, QUORVANE_MODEL_SEED the seed of the first; every further case has the next one. So
// one case is played again by its seed and a number of 1.

namespace {

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise) {
  const char* value = std::getenv(name);
  return value == nullptr ? otherwise
                          : static_cast<std::uint32_t>(std::strtoul(value, nullptr, 10));
}

/// How many runs were taken back to the byte, and by kind how many were not, with the first seed.
struct Tally {
  int exact[3] = {};
  std::map<std::string, std::pair<int, std::uint32_t>> rests;

  void Print() const {
    std::cout << "taken back whole: " << exact[0] << " in place, " << exact[1] << " copies, "
              << exact[2] << " moves\n";
    for (const auto& [kind, rest] : rests) {
      std::cout << "rests by " << kind << ": " << rest.first << ", as seed " << rest.second << "\n";
    }
  }
};

template <class MakeDisk>
void PlayCases(std::uint32_t cases, bool real, MakeDisk&& make_disk) {
  Tally tally;
  const std::uint32_t first = FromEnvironment("QUORVANE_MODEL_SEED", 1);
  cases = FromEnvironment("QUORVANE_MODEL_CASES", cases);
  for (std::uint32_t seed = first; seed - first < cases; ++seed) {
    const auto disk = make_disk(seed);
    ModelCase one(seed, *disk, real);
    const bool agrees = one.Play();
    ASSERT_TRUE(agrees) << "seed " << seed << "\n" << Readable(one.story);
    for (const RoundTrip& trip : one.round_trips) {
      ASSERT_TRUE(trip.exact || !trip.kind.empty()) << "not taken back, seed " << seed << "\n"
                                                    << Readable(one.story);
      if (trip.exact) ++tally.exact[trip.mode];
      if (!trip.exact) ++tally.rests.try_emplace(trip.kind, 0, seed).first->second.first;
    }
    if (cases == 1) std::cout << Readable(one.story);
  }
  if (std::getenv("QUORVANE_MODEL_CASES") != nullptr) tally.Print();
}

}  // namespace

TEST(RunAndUndo, DoWhatThePlainModelDoesInMemory) {
  PlayCases(2500, false, [](std::uint32_t) { return MakeMemoryDisk(); });
}

TEST(RunAndUndo, DoWhatThePlainModelDoesOnDisk) {
  PlayCases(300, true, [](std::uint32_t seed) { return MakeRealDisk(seed % 5 == 0); });
}
