#include "rename/numbering.h"

#include <charconv>
#include <utility>

#include "common/drives.h"
#include "common/path_text.h"
#include "names/name_text.h"
#include "platform/name_pattern.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr std::size_t kMostDigits = 19;  // what std::uint64_t surely holds

std::string SeriesKey(std::string_view lower_head, std::string_view lower_tail) {
  std::string key(lower_head);
  key += '\0';
  return key += lower_tail;
}

}  // namespace

Numbering::Numbering(const RunState& state, FileSystem& files, GoOn go_on)
    : state_(state), files_(files), go_on_(std::move(go_on)) {}

std::string Numbering::FreeName(std::string_view pPath, std::string_view pName) {
  if (!mScanCD::FileExist(files_, std::string(pPath).append(pName))) return std::string(pName);
  return FreeNumberedName(pPath, pName);
}

std::string Numbering::FreeNumberedName(std::string_view pPath, std::string_view pName) {
  const std::string_view extension = mMain::GetFileExt(pName, ".");
  std::string head(pPath);
  head.append(mMain::GetFileName(pName)).append(state_.gNumberLeft);
  std::string tail = state_.gNumberRight;
  if (!extension.empty()) tail.append(".").append(extension);
  // A candidate with wildcards is taken by any file that it matches, so any that goes may free it.
  const bool matches_many = HasWildcards(head.substr(pPath.size())) || HasWildcards(tail);
  Series& series = SeriesOf(std::move(head), std::move(tail));
  if (matches_many) {
    series.untried = 1;
    series.freed.clear();
  }
  const std::string free = FirstFree(series);
  return free.empty() ? free : free.substr(pPath.size());
}

/// The path with the lowest free number; "" when the search gave up.
std::string Numbering::FirstFree(Series& series) {
  while (go_on_()) {
    const bool again = !series.freed.empty();
    const std::uint64_t number = again ? *series.freed.begin() : series.untried;
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
  ErrTrace::inner<"Form1.CreateUniqueName(pPath,pName,CorrectedNewName)">(
      ErrTrace::args(pPath, pName, CorrectedNewName), [&] {
        std::string free = FreeName(pPath, pName);
        if (!free.empty() && free != pName) CorrectedNewName = std::move(free);
      });
}

void Numbering::Freed(std::string_view path) {
  if (series_.empty()) return;
  const std::string lower = text::ToLower(path);
  const std::string left = text::ToLower(state_.gNumberLeft);
  // Any digits of the name may be the number, since head and tail may hold digits of their own.
  for (std::size_t begin = lower.size(); begin-- > 0 && lower[begin] != kNative.separator;) {
    const std::string_view head = std::string_view(lower).substr(0, begin);
    if (!IsDigit(lower[begin]) || lower[begin] == '0' || !head.ends_with(left)) continue;
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
    if (number < series.untried) series.freed.insert(number);
  }
}

Numbering::Series& Numbering::SeriesOf(std::string head, std::string tail) {
  std::vector<Series>& same = series_[SeriesKey(text::ToLower(head), text::ToLower(tail))];
  for (Series& series : same) {
    if (series.head == head && series.tail == tail) return series;
  }
  return same.emplace_back(Series{std::move(head), std::move(tail), 1, {}});
}

bool StaysInItsFolder(std::string_view name) {
  using namespace std::string_view_literals;
  return name.find_first_of("/\0"sv) == name.npos;
}
