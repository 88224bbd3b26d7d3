#include "rename/numbering.h"

#include <algorithm>
#include <charconv>

#include "common/drives.h"
#include "common/path_text.h"
#include "names/name_text.h"
#include "platform/text.h"
#include "trace/err_trace.h"

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string SeriesKey(std::string_view head, std::string_view tail) {
  std::string key = text::ToLower(head);
  key += '\0';
  return key += text::ToLower(tail);
}

}  // namespace

Numbering::Numbering(const RunState& state, FileSystem& files) : state_(state), files_(files) {}

std::string Numbering::FreeName(std::string_view pPath, std::string_view pName) {
  std::string candidate(pPath);
  candidate += pName;
  if (!mScanCD::FileExist(files_, candidate)) return std::string(pName);
  const std::string_view extension = mMain::GetFileExt(pName, ".");
  std::string head(pPath);
  head.append(mMain::GetFileName(pName, ".")).append(state_.gNumberLeft);
  std::string tail = state_.gNumberRight;
  if (!extension.empty()) tail.append(".").append(extension);
  Series& series = SeriesOf(std::move(head), std::move(tail));
  for (;; ++series.first_open) {
    candidate = series.head + std::to_string(series.first_open) + series.tail;
    if (!mScanCD::FileExist(files_, candidate)) return candidate.substr(pPath.size());
  }
}

void Numbering::CreateUniqueName(std::string_view pPath, std::string_view pName,
                                 std::string& CorrectedNewName) {
  ErrTrace::inner<"Form1.CreateUniqueName(pPath,pName,CorrectedNewName)">(
      ErrTrace::args(pPath, pName, CorrectedNewName), [&] {
        std::string free = FreeName(pPath, pName);
        if (free != pName) CorrectedNewName = std::move(free);
      });
}

void Numbering::Freed(std::string_view path) {
  if (series_.empty()) return;
  // Any digits of the name may be the number, since head and tail may hold digits of their own.
  for (std::size_t begin = path.size(); begin-- > 0 && path[begin] != kNative.separator;) {
    if (!IsDigit(path[begin]) || path[begin] == '0') continue;
    for (std::size_t end = begin + 1; end - begin < 20; ++end) {
      const std::string_view head = path.substr(0, begin), tail = path.substr(end);
      const auto found = series_.find(SeriesKey(head, tail));
      if (found != series_.end()) {
        std::uint64_t number = 0;
        std::from_chars(path.data() + begin, path.data() + end, number);
        for (Series& series : found->second) {
          series.first_open = std::min(series.first_open, number);
        }
      }
      if (end >= path.size() || !IsDigit(path[end])) break;
    }
  }
}

Numbering::Series& Numbering::SeriesOf(std::string head, std::string tail) {
  std::vector<Series>& same = series_[SeriesKey(head, tail)];
  for (Series& series : same) {
    if (series.head == head && series.tail == tail) return series;
  }
  return same.emplace_back(Series{std::move(head), std::move(tail)});
}

bool StaysInItsFolder(std::string_view name) {
  using namespace std::string_view_literals;
  return name.find_first_of("/\0"sv) == name.npos;
}
