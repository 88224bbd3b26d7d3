#include "filelist/type_to_find.h"

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

/// `beginning` is folded.
bool Begins(std::string_view name, std::string_view beginning) {
  const std::string_view start = name.substr(0, beginning.size());
  if (!text::IsAscii(start)) return text::Folded(name).starts_with(beginning);
  // A million names are looked at between two keys.
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  for (std::size_t i = 0; i < start.size(); ++i) {
    if (lower(start[i]) != beginning[i]) return false;
  }
  return start.size() == beginning.size();
}

std::optional<std::size_t> Find(const RecordList& list, std::string_view beginning,
                                std::size_t from) {
  const TextOf name = NamesOf(list);
  const GroupedRows& rows = list.Rows();
  const std::size_t count = name ? rows.RowCount() : 0;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (from + i) % count;
    if (!rows.IsGroupRow(row) && Begins(name(rows.RecordOf(row)), beginning)) return row;
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

std::optional<std::size_t> TypeToFind::Type(std::string_view letters, std::int64_t now,
                                            const RecordList& list, int current) {
  if (now - last_ > kPause) typed_.clear();
  last_ = now;
  const auto here = static_cast<std::size_t>(current < 0 ? 0 : current);
  const std::size_t next = current < 0 ? 0 : here + 1;
  const bool begins = typed_.empty();
  text::AppendFolded(letters, typed_);
  if (typed_.empty()) return std::nullopt;
  const auto row = Find(list, typed_, begins ? next : here);
  if (row) return row;
  const std::string_view again = OnlyCharacter(typed_);
  return again.empty() ? std::nullopt : Find(list, again, next);
}
