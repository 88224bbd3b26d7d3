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

std::string_view TextOf(const Words& words, std::size_t from, std::size_t to) {
  if (from == to) return {};
  const char* const begin = words[from].data();
  const char* const end = words[to - 1].data() + words[to - 1].size();
  return {begin, static_cast<std::size_t>(end - begin)};
}

void AddRange(std::string_view name, std::string_view part, std::vector<TextRange>& ranges) {
  if (part.empty()) return;
  const auto begin = static_cast<std::size_t>(part.data() - name.data());
  ranges.push_back({begin, begin + part.size()});
}

}  // namespace

ChangedPart FindChangedPart(std::string_view old_name, std::string_view new_name) {
  const Words old_words = WordsOf(old_name);
  const Words new_words = WordsOf(new_name);
  ChangedPart changed;
  const Comparison comparison(old_words, new_words);
  for (const Change& change : comparison.Changes()) {
    AddRange(old_name, TextOf(old_words, change.old_from, change.old_to), changed.gone);
    AddRange(new_name, TextOf(new_words, change.new_from, change.new_to), changed.come);
  }
  return changed;
}

std::string DescribeChange(std::string_view old_name, std::string_view new_name) {
  const Words old_words = WordsOf(old_name);
  const Words new_words = WordsOf(new_name);
  const Comparison comparison(old_words, new_words);
  if (comparison.Changes().empty()) return {};
  const Change& first = comparison.Changes().front();
  const std::string gone(TextOf(old_words, first.old_from, first.old_to));
  const std::string come(TextOf(new_words, first.new_from, first.new_to));
  if (come.empty()) return gone + " removed";
  if (gone.empty()) return come + " added";
  return gone + " becomes " + come;
}
