#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
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

template <class MakeDisk>
void PlayCases(std::uint32_t cases, const CaseKind& kind, MakeDisk&& make_disk) {
  int undone = 0;
  const std::uint32_t first = FromEnvironment("QUORVANE_MODEL_SEED", 1);
  cases = FromEnvironment("QUORVANE_MODEL_CASES", cases);
  for (std::uint32_t seed = first; seed - first < cases; ++seed) {
    CaseKind one_kind = kind;
    one_kind.case_blind = !kind.real && seed % 4 == 0;
    const auto disk = make_disk(seed, one_kind.case_blind);
    ModelCase one(seed, *disk, one_kind);
    const bool holds = one.Play();
    ASSERT_TRUE(holds) << "seed " << seed << "\n" << Readable(one.story);
    undone += one.undone;
    if (cases == 1) std::cout << Readable(one.story);
  }
  if (std::getenv("QUORVANE_MODEL_CASES") != nullptr) {
    std::cout << cases << " cases, " << undone << " undos that brought all back\n";
  }
}

const auto kInMemory = [](std::uint32_t, bool case_blind) { return MakeMemoryDisk(case_blind); };
const auto kOnDisk = [](std::uint32_t seed, bool) { return MakeRealDisk(seed % 5 == 0); };

}  // namespace

TEST(RunAndUndo, BringAllBackWithoutFaults) {
  PlayCases(1000, {}, kInMemory);
}

TEST(RunAndUndo, LoseNothingWithFaults) {
  PlayCases(800, {.faults = true}, kInMemory);
}

TEST(RunAndUndo, DoTheSameOnDisk) {
  PlayCases(70, {.real = true}, kOnDisk);
  PlayCases(70, {.real = true, .faults = true}, kOnDisk);
}
