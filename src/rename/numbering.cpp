#include "rename/numbering.h"

#include <charconv>
#include <optional>
#include <utility>

#include "common/drives.h"
#include "common/path_text.h"
#include "core/name_problem.h"
#include "names/name_text.h"
#include "platform/name_pattern.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr std::size_t kMostDigits = 19;  // what std::uint64_t surely holds
constexpr std::uint64_t kHighest = 9'999'999'999'999'999'999u;
constexpr std::size_t kLongestName = 255;  // bytes

/// What stands before and behind the number of a name.
struct NameParts {
  std::string head;
  std::string tail;
  bool operator==(const NameParts&) const = default;
};

/// `base` without as many characters at its end as it takes to fit into `room` bytes.
std::string_view Shortened(std::string_view base, std::size_t room) {
  if (base.size() <= room) return base;
  std::size_t end = 0;
  while (end < base.size()) {
    const std::size_t next = text::NextCharacter(base, end);
    if (next > room) break;
    end = next;
  }
  return base.substr(0, end);
}

/// The parts of a name that leaves room for `reserved` bytes; nothing when the texts alone are too
/// long.
std::optional<NameParts> AsideParts(std::string_view name, const NumberTexts& texts,
                                    std::size_t reserved) {
  const auto parts = [&](std::string_view base,
                         const std::string& extension) -> std::optional<NameParts> {
    const std::size_t fixed = texts.left.size() + texts.right.size() + extension.size() + reserved;
    if (fixed > kLongestName) return std::nullopt;
    return NameParts{std::string(Shortened(base, kLongestName - fixed)) + texts.left,
                     texts.right + extension};
  };
  const std::string_view extension = mMain::GetFileExt(name, ".");
  if (extension.empty()) return parts(mMain::GetFileName(name), "");
  const auto found = parts(mMain::GetFileName(name), std::string(".").append(extension));
  return found ? found : parts(name, "");
}

std::string SeriesKey(std::string_view lower_head, std::string_view lower_tail) {
  std::string key(lower_head);
  key += '\0';
  return key += lower_tail;
}

}  // namespace

NumberedNames ConflictNames(std::string_view name, const NumberTexts& texts) {
  const std::string_view extension = mMain::GetFileExt(name, ".");
  NumberedNames names{std::string(mMain::GetFileName(name)) + texts.left, texts.right, 1, kHighest};
  if (!extension.empty()) names.tail.append(".").append(extension);
  return names;
}

std::vector<NumberedNames> AsideNames(std::string_view path, std::string_view name,
                                      const NumberTexts& texts) {
  std::vector<NumberedNames> names;
  if (!StaysInItsFolder(texts.left + texts.right)) return names;
  const std::size_t beginning = path.size() - (path.rfind(kNative.separator) + 1);
  std::uint64_t first = 1;
  for (std::size_t digits = 1; digits <= kMostDigits; ++digits, first *= 10) {
    const auto parts = AsideParts(name, texts, beginning + digits);
    if (!parts) break;
    // Where there is room for every number, one series serves them all.
    const bool roomy = digits == 1 && parts == AsideParts(name, texts, beginning + kMostDigits);
    names.push_back({parts->head, parts->tail, first, roomy ? kHighest : first * 10 - 1});
    if (roomy) break;
  }
  return names;
}

Numbering::Numbering(Pass& pass) : pass_(pass), state_(pass.state), files_(pass.services.files) {}

std::string Numbering::FreeName(std::string_view pPath, std::string_view pName) {
  if (!mScanCD::FileExist(files_, std::string(pPath).append(pName))) return std::string(pName);
  return FreeNumberedName(pPath, pName);
}

std::string Numbering::FreeNumberedName(std::string_view pPath, std::string_view pName) {
  const NumberingOptions& user = state_.numbering;
  return FreeIn(pPath, ConflictNames(pName, {user.gNumberLeft, user.gNumberRight}));
}

std::string Numbering::FreeAsideName(std::string_view pPath, std::string_view pName,
                                     const NumberTexts& texts) {
  for (NumberedNames& names : AsideNames(pPath, pName, texts)) {
    std::string free = FreeIn(pPath, std::move(names));
    if (!free.empty() || !pass_.GoOn()) return free;
  }
  return {};
}

/// The first free name of the series without its folder; "" when there is none, or the search gave
/// up.
std::string Numbering::FreeIn(std::string_view folder, NumberedNames names) {
  // A candidate with wildcards is taken by any file that it matches, so any that goes may free it;
  // with a separator it may lie in any folder.
  const std::string around = names.head + names.tail;
  const bool matches_many = HasWildcards(around) || !StaysInItsFolder(around);
  names.head.insert(0, folder);
  Series fresh{std::move(names)};
  fresh.untried = fresh.first;
  Series* known = series_.empty() ? nullptr : Known(fresh, folder.size());
  if (known != nullptr && matches_many) {
    known->untried = known->first;
    known->freed.clear();
  }
  const std::string free = FirstFree(known != nullptr ? *known : fresh);
  // Mostly the first number is free, which is nothing to remember.
  if (known == nullptr && fresh.untried != fresh.first) {
    series_[KeyOf(fresh, folder.size())].push_back(std::move(fresh));
  }
  return free.empty() ? free : free.substr(folder.size());
}

std::string Numbering::FirstFree(Series& series) {
  while (pass_.GoOn()) {
    const bool again = !series.freed.empty();
    const std::uint64_t number = again ? *series.freed.begin() : series.untried;
    if (number > series.last) break;
    std::string candidate = series.head + std::to_string(number) + series.tail;
    if (!mScanCD::FileExist(files_, candidate)) return candidate;
    if (again) {
      series.freed.erase(series.freed.begin());
    } else {
      ++series.untried;
    }
  }
  return {};
}

void Numbering::CreateUniqueName(std::string_view pPath, std::string_view pName,
                                 std::string& CorrectedNewName) {
  ErrTrace::inner("Form1.CreateUniqueName(pPath,pName,CorrectedNewName)",
                  ErrTrace::args(pPath, pName, CorrectedNewName), [&] {
                    std::string free = FreeName(pPath, pName);
                    if (!free.empty() && free != pName) CorrectedNewName = std::move(free);
                  });
}

void Numbering::Freed(std::string_view path) {
  if (series_.empty()) return;
  const std::size_t folder_size = path.rfind(kNative.separator) + 1;
  const std::string lower = text::ToLower(Resolved(path, folder_size));
  const std::string left = text::ToLower(state_.numbering.gNumberLeft);
  const auto behind_left_text = [&](std::string_view head) {
    return head.ends_with(left) || head.ends_with(kSafeNumberTexts.left);
  };
  // Any digits of the name may be the number, since head and tail may hold digits of their own.
  for (std::size_t begin = lower.size(); begin-- > 0 && lower[begin] != kNative.separator;) {
    const std::string_view head = std::string_view(lower).substr(0, begin);
    if (!IsDigit(lower[begin]) || lower[begin] == '0' || !behind_left_text(head)) continue;
    for (std::size_t end = begin + 1; end - begin <= kMostDigits; ++end) {
      Open(head, std::string_view(lower).substr(end), lower.data() + begin, lower.data() + end);
      if (end >= lower.size() || !IsDigit(lower[end])) break;
    }
  }
}

void Numbering::Open(std::string_view lower_head, std::string_view lower_tail, const char* digits,
                     const char* digits_end) {
  const auto found = series_.find(SeriesKey(lower_head, lower_tail));
  if (found == series_.end()) return;
  std::uint64_t number = 0;
  std::from_chars(digits, digits_end, number);
  for (Series& series : found->second) {
    if (series.first <= number && number < series.untried) series.freed.insert(number);
  }
}

/// `path` with the folder of its first `folder_size` bytes as the system resolves it: one folder
/// may have several paths.
std::string Numbering::Resolved(std::string_view path, std::size_t folder_size) {
  const std::string_view folder = path.substr(0, folder_size);
  if (folder != last_folder_ || last_resolved_.empty()) {
    last_folder_ = folder;
    last_resolved_ = files_.ResolveFolder(folder);
  }
  return last_resolved_ + std::string(path.substr(folder_size));
}

std::string Numbering::KeyOf(const Series& series, std::size_t folder_size) {
  const std::string head = Resolved(series.head, folder_size);
  return SeriesKey(text::ToLower(head), text::ToLower(series.tail));
}

/// The same series as it was kept, if it was.
Numbering::Series* Numbering::Known(const Series& wanted, std::size_t folder_size) {
  const auto found = series_.find(KeyOf(wanted, folder_size));
  if (found == series_.end()) return nullptr;
  for (Series& series : found->second) {
    if (series.head == wanted.head && series.tail == wanted.tail && series.first == wanted.first &&
        series.last == wanted.last) {
      return &series;
    }
  }
  return nullptr;
}
