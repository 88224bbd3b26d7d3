#include "filelist/type_to_find.h"

#include <algorithm>
#include <variant>

#include "platform/text.h"

namespace {

constexpr std::int64_t kPause = 1000;

TextOf NamesOf(const RecordList& list) {
  for (const ListColumn& column : list.Columns()) {
    if (column.cell == Cell::kHidden || !column.sort_key) continue;
    const SortKey key = column.sort_key();
    if (const TextOf* names = std::get_if<TextOf>(&key)) return *names;
  }
  return nullptr;
}

/// Whether names begin with a folded text. A million names are looked at between two keys, so no
/// more of a name is folded than what tells.
class Beginning {
 public:
  explicit Beginning(std::string_view folded) : folded_(folded) {}

  bool Fits(std::string_view name) {
    const std::string_view start = name.substr(0, folded_.size());
    if (!text::IsAscii(start)) return FitsByCharacters(name);
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (std::size_t i = 0; i < start.size(); ++i) {
      if (lower(start[i]) != folded_[i]) return false;
    }
    return start.size() == folded_.size();
  }

 private:
  bool FitsByCharacters(std::string_view name) {
    std::string_view rest = folded_;
    for (std::size_t at = 0; at < name.size() && !rest.empty();) {
      const std::size_t end = text::NextCharacter(name, at);
      character_.clear();
      text::AppendFolded(name.substr(at, end - at), character_);
      const std::size_t size = std::min(rest.size(), character_.size());
      if (character_.compare(0, size, rest, 0, size) != 0) return false;
      rest.remove_prefix(size);
      at = end;
    }
    return rest.empty();
  }

  const std::string_view folded_;
  std::string character_;  ///< for its room
};

std::optional<std::size_t> Find(const RecordList& list, std::string_view folded, std::size_t from) {
  const TextOf name = NamesOf(list);
  const GroupedRows& rows = list.Rows();
  const std::size_t count = name ? rows.RowCount() : 0;
  Beginning beginning(folded);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (from + i) % count;
    if (!rows.IsGroupRow(row) && beginning.Fits(name(rows.RecordOf(row)))) return row;
  }
  return std::nullopt;
}

/// The character that all of `typed` is made of, else empty.
std::string_view OnlyCharacter(std::string_view typed) {
  const std::string_view first = text::Left(typed, 1);
  for (std::size_t at = 0; at < typed.size(); at += first.size()) {
    if (typed.substr(at, first.size()) != first) return {};
  }
  return first;
}

}  // namespace

bool TypeToFind::GoesOn(std::int64_t now) const {
  return !typed_.empty() && now - last_ <= kPause;
}

std::optional<std::size_t> TypeToFind::Type(std::string_view letters, std::int64_t now,
                                            const RecordList& list, int current) {
  if (!GoesOn(now)) typed_.clear();
  last_ = now;
  const auto here = static_cast<std::size_t>(current < 0 ? 0 : current);
  const std::size_t next = current < 0 ? 0 : here + 1;
  const bool begins = typed_.empty();
  text::AppendFolded(letters, typed_);
  if (typed_.empty()) return std::nullopt;
  const auto row = Find(list, typed_, begins ? next : here);
  if (row || begins) return row;  // from a beginning no other search is left
  const std::string_view again = OnlyCharacter(typed_);
  return again.empty() ? std::nullopt : Find(list, again, next);
}
