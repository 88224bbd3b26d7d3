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

/// What differs between two names. They are compared word by word: a word is a run of letters, a
/// run of digits, or any other character alone. Where words became others, the characters with
/// which both begin and end are no difference; one lone separator between two differences of a name
/// is taken for a part of both. No character is torn. Ranges stand in ascending order and never
/// touch.
struct ChangedPart {
  std::vector<TextRange> gone;  ///< of the old name
  std::vector<TextRange> come;  ///< of the new name
};

/// The least change of words that leads from `old_name` to `new_name`. Of names whose middle has
/// very many words the whole middle counts as changed, so that painting a row never takes long.
ChangedPart FindChangedPart(std::string_view old_name, std::string_view new_name);

/// The first change in words, as it is marked: "IMG_ removed", "_0001 added", "JPG becomes jpg";
/// empty for equal names.
std::string DescribeChange(std::string_view old_name, std::string_view new_name);
