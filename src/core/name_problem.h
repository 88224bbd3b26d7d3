#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/file_row.h"

/// What is wrong with a new name before any file is touched; the least number comes first where
/// more than one thing is.
enum class NameProblem : std::uint8_t {
  kNone,
  kEmpty,
  kHoldsSeparator,  ///< or NUL
  kTooLong,
  kTakenFails,  ///< this and the next: another file has or gets it, as `NameCheck` foretells
  kGetsNumber,
  kOnlyExtension,
};
inline constexpr std::size_t kNameProblems = 7;

/// Whether a name can stand in a path without leading elsewhere: no separator, no NUL.
bool StaysInItsFolder(std::string_view name);

struct NameVerdict {
  NameProblem problem = NameProblem::kNone;
  std::size_t bytes = 0;  ///< of a name that is too long
  std::size_t limit = 0;  ///< of which it may have so many
  bool operator==(const NameVerdict&) const = default;
};

/// Looks at the new name of a row that a run would take, where names may have `limit` bytes; of any
/// other row nothing is wrong. Only an extension is what has lost the stem that the old name had.
NameVerdict JudgeNewName(const FileRow& row, std::size_t limit);

/// "empty name: will fail", "too long: 260 of 255 bytes", "taken: will get a number"; "" of
/// `kNone`.
std::string VerdictText(const NameVerdict& verdict);

/// The new names of a whole preview.
struct NameTally {
  std::size_t limit = 0;                              ///< in bytes; 0: there was no preview
  std::array<std::int64_t, kNameProblems> rows = {};  ///< those that a run would take, by problem
  std::int64_t taken = 0;                             ///< of these, as far as they were looked at

  void Add(const FileRow& row) {
    ++rows[static_cast<std::size_t>(JudgeNewName(row, limit).problem)];
  }
};
