#include "filelist/changed_part.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>

#include "platform/text.h"
#include "platform/utf8.h"

namespace {

using Words = std::vector<std::string_view>;

/// Cells of the table of the comparison: 64 KiB, some 250 words against as many.
constexpr std::size_t kMostCells = 1 << 16;

enum class WordKind { kLetters, kDigits, kAlone };

WordKind KindOf(std::string_view character) {
  std::size_t at = 0;
  const char32_t point = utf8::Read(character, at);
  if (point >= utf8::kBadByte) return WordKind::kAlone;
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(point))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
      return WordKind::kLetters;
    case UTF8PROC_CATEGORY_ND:
      return WordKind::kDigits;
    default:
      return WordKind::kAlone;
  }
}

Words WordsOf(std::string_view name) {
  Words words;
  WordKind last = WordKind::kAlone;
  for (std::size_t at = 0; at < name.size();) {
    const std::size_t end = text::NextCharacter(name, at);
    const WordKind kind = KindOf(name.substr(at, end - at));
    if (kind != WordKind::kAlone && kind == last) {
      words.back() = {words.back().data(), words.back().size() + end - at};
    } else {
      words.push_back(name.substr(at, end - at));
    }
    last = kind;
    at = end;
  }
  return words;
}

/// One change: the words `old_from` to `old_to` of the old name became those of the new one.
struct Change {
  std::size_t old_from, old_to;
  std::size_t new_from, new_to;
};

/// The changes between the words of both names, in their order, with equal words between them.
class Comparison {
 public:
  Comparison(const Words& old_words, const Words& new_words) : old_(old_words), new_(new_words) {
    const std::size_t shorter = std::min(old_.size(), new_.size());
    std::size_t head = 0;
    while (head < shorter && old_[head] == new_[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && old_[old_.size() - 1 - tail] == new_[new_.size() - 1 - tail]) {
      ++tail;
    }
    const Change middle{head, old_.size() - tail, head, new_.size() - tail};
    const std::size_t rows = middle.old_to - head + 1;
    const std::size_t columns = middle.new_to - head + 1;
    if (rows > 1 && columns > 1 && rows <= kMostCells / columns) {
      Align(middle, rows, columns);
    } else if (rows > 1 || columns > 1) {
      changes_.push_back(middle);
    }
  }

  const std::vector<Change>& Changes() const { return changes_; }

 private:
  /// The longest common sequence of the words in `middle`, from its table filled from behind.
  void Align(const Change& middle, std::size_t rows, std::size_t columns) {
    std::vector<std::uint16_t> lengths(rows * columns);
    const auto length = [&](std::size_t i, std::size_t k) -> std::uint16_t& {
      return lengths[(i - middle.old_from) * columns + (k - middle.new_from)];
    };
    for (std::size_t i = middle.old_to; i-- > middle.old_from;) {
      for (std::size_t k = middle.new_to; k-- > middle.new_from;) {
        length(i, k) = old_[i] == new_[k] ? static_cast<std::uint16_t>(length(i + 1, k + 1) + 1)
                                          : std::max(length(i + 1, k), length(i, k + 1));
      }
    }
    Change change{middle.old_from, middle.old_from, middle.new_from, middle.new_from};
    while (change.old_to < middle.old_to || change.new_to < middle.new_to) {
      const std::size_t i = change.old_to;
      const std::size_t k = change.new_to;
      if (i < middle.old_to && k < middle.new_to && old_[i] == new_[k]) {
        Finish(change);
        change = {i + 1, i + 1, k + 1, k + 1};
      } else if (k == middle.new_to ||
                 (i < middle.old_to && length(i + 1, k) >= length(i, k + 1))) {
        ++change.old_to;
      } else {
        ++change.new_to;
      }
    }
    Finish(change);
  }

  void Finish(const Change& change) {
    if (change.old_from < change.old_to || change.new_from < change.new_to) {
      changes_.push_back(change);
    }
  }

  const Words& old_;
  const Words& new_;
  std::vector<Change> changes_;
};

/// One change in bytes: a part of the old name became one of the new. One of both may be empty.
struct Replaced {
  TextRange gone;
  TextRange come;
};

bool Empty(const TextRange& range) {
  return range.begin == range.end;
}

std::string_view PartOf(std::string_view name, const TextRange& range) {
  return name.substr(range.begin, range.end - range.begin);
}

/// The bytes of the words `from` to `to`, which may be none.
TextRange RangeOf(std::string_view name, const Words& words, std::size_t from, std::size_t to) {
  if (from == to) return {};
  const auto end_of = [](std::string_view word) { return word.data() + word.size(); };
  return {static_cast<std::size_t>(words[from].data() - name.data()),
          static_cast<std::size_t>(end_of(words[to - 1]) - name.data())};
}

/// Leaves out the characters with which both parts begin and end.
void LeaveOutCommonEnds(std::string_view old_name, std::string_view new_name, Replaced& part) {
  const auto characters = [](std::string_view t) {
    std::vector<std::size_t> sizes;
    for (std::size_t at = 0; at < t.size(); at += sizes.back()) {
      sizes.push_back(text::NextCharacter(t, at) - at);
    }
    return sizes;
  };
  const auto equal = [&](std::size_t old_at, std::size_t new_at, std::size_t size) {
    return old_name.substr(old_at, size) == new_name.substr(new_at, size);
  };
  const std::vector<std::size_t> gone = characters(PartOf(old_name, part.gone));
  const std::vector<std::size_t> come = characters(PartOf(new_name, part.come));
  std::size_t left = std::min(gone.size(), come.size());
  std::size_t i = 0;
  for (; left > 0 && gone[i] == come[i]; ++i, --left) {
    if (!equal(part.gone.begin, part.come.begin, gone[i])) break;
    part.gone.begin += gone[i];
    part.come.begin += gone[i];
  }
  for (i = 1; left > 0 && gone[gone.size() - i] == come[come.size() - i]; ++i, --left) {
    const std::size_t size = gone[gone.size() - i];
    if (!equal(part.gone.end - size, part.come.end - size, size)) break;
    part.gone.end -= size;
    part.come.end -= size;
  }
}

/// Whether each word of the change became one of its kind, as in "_7" and "-70".
bool GoesWordByWord(const Words& old_words, const Words& new_words, const Change& change) {
  const std::size_t count = change.old_to - change.old_from;
  if (count != change.new_to - change.new_from) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const WordKind kind = KindOf(old_words[change.old_from + i]);
    if (kind != KindOf(new_words[change.new_from + i])) return false;
  }
  return true;
}

std::vector<Replaced> FindReplaced(std::string_view old_name, std::string_view new_name) {
  const Words old_words = WordsOf(old_name);
  const Words new_words = WordsOf(new_name);
  std::vector<Replaced> parts;
  const auto add = [&](const Change& change) {
    parts.push_back({RangeOf(old_name, old_words, change.old_from, change.old_to),
                     RangeOf(new_name, new_words, change.new_from, change.new_to)});
    LeaveOutCommonEnds(old_name, new_name, parts.back());
  };
  const Comparison comparison(old_words, new_words);
  for (Change change : comparison.Changes()) {
    const bool word_by_word = GoesWordByWord(old_words, new_words, change);
    for (; word_by_word && change.old_from < change.old_to; ++change.old_from, ++change.new_from) {
      add({change.old_from, change.old_from + 1, change.new_from, change.new_from + 1});
    }
    if (!word_by_word) add(change);
  }
  return parts;
}

/// Two marks that touch, or would leave one separator alone between them, which is harder to read
/// than one mark over all three.
bool Joins(std::string_view name, const TextRange& a, const TextRange& b) {
  if (Empty(a) || Empty(b)) return false;
  if (a.end == b.begin) return true;
  const std::string_view between = PartOf(name, {a.end, b.begin});
  return text::NextCharacter(between, 0) == between.size() && KindOf(between) == WordKind::kAlone;
}

void AddMark(std::string_view name, const TextRange& part, std::vector<TextRange>& marks) {
  if (Empty(part)) return;
  if (!marks.empty() && Joins(name, marks.back(), part)) {
    marks.back().end = part.end;
  } else {
    marks.push_back(part);
  }
}

/// Both ranges and what lies between them; an empty one counts for nothing.
TextRange Hull(const TextRange& a, const TextRange& b) {
  if (Empty(a) || Empty(b)) return Empty(a) ? b : a;
  return {a.begin, b.end};
}

}  // namespace

ChangedPart FindChangedPart(std::string_view old_name, std::string_view new_name) {
  ChangedPart changed;
  for (const Replaced& part : FindReplaced(old_name, new_name)) {
    AddMark(old_name, part.gone, changed.gone);
    AddMark(new_name, part.come, changed.come);
  }
  return changed;
}

std::string DescribeChange(std::string_view old_name, std::string_view new_name) {
  const std::vector<Replaced> parts = FindReplaced(old_name, new_name);
  if (parts.empty()) return {};
  Replaced first = parts.front();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const bool joined = Joins(old_name, parts[i - 1].gone, parts[i].gone) ||
                        Joins(new_name, parts[i - 1].come, parts[i].come);
    if (!joined) break;
    first = {Hull(first.gone, parts[i].gone), Hull(first.come, parts[i].come)};
  }
  const std::string gone(PartOf(old_name, first.gone));
  const std::string come(PartOf(new_name, first.come));
  if (come.empty()) return gone + " removed";
  if (gone.empty()) return come + " added";
  return gone + " becomes " + come;
}
