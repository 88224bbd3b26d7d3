#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Bytes `begin` to `end`, without `end`, of a name.
struct TextRange {
  std::size_t begin = 0;
  std::size_t end = 0;
  bool operator==(const TextRange&) const = default;
};

/// What differs between two names, compared word by word: a word is a run of letters, a run of
/// digits, or any other character alone. Ranges stand in ascending order and never touch.
struct ChangedPart {
  std::vector<TextRange> gone;  ///< words of the old name that the new one has not
  std::vector<TextRange> come;  ///< words of the new name that the old one had not
};

/// The least change that leads from `old_name` to `new_name`. Of names whose middle has very many
/// words the whole middle counts as changed, so that painting a row never takes long.
ChangedPart FindChangedPart(std::string_view old_name, std::string_view new_name);

/// The first change in words, as in "IMG_ removed", "_0001 added", "JPG becomes jpg"; empty for
/// equal names.
std::string DescribeChange(std::string_view old_name, std::string_view new_name);
