#pragma once

#include <string>

/// What the test and the program that it kills agree on.

inline constexpr int kKilledFiles = 40;

enum class KilledWork { kRename = 0, kCopy = 1, kMove = 2 };

inline std::string KilledName(int i) {
  return "f" + std::to_string(i) + ".jpg";
}

/// The first half swaps names in pairs, the second half turns them round.
inline std::string KilledNewName(int i) {
  constexpr int kHalf = kKilledFiles / 2;
  return KilledName(i < kHalf ? i ^ 1 : i + 1 < kKilledFiles ? i + 1 : kHalf);
}

/// The whole content of a file: it tells which one it is, and every eighth is large.
inline std::string KilledContent(int i) {
  const std::string line = "file " + std::to_string(i) + "\n";
  const int lines = i % 8 == 0 ? 100'000 : 1 + i;
  std::string content;
  for (int k = 0; k < lines; ++k) content += line;
  return content;
}
