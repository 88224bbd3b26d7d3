#include "commands/result_line.h"

#include "common/language.h"
#include "common/size_text.h"

namespace {

using namespace mLanguageGobals;

template <class Count>
std::string Number(Count count, const LocaleFacts& locale) {
  return mCommon::SizeCorrectView(static_cast<double>(count), 0, locale);
}

}  // namespace

std::string ProgressLine(const FileCounts& counts, const LocaleFacts& locale) {
  if (counts.all == 0) return {};
  return Number(counts.passed, locale).append(kOf) + Number(counts.all, locale);
}

std::string ResultLine(std::string_view done, const FileCounts& counts, const RunReports& reports,
                       const LocaleFacts& locale) {
  std::string line = Number(counts.done, locale).append(" ").append(done);
  const auto add = [&](std::size_t count, std::string_view word) {
    if (count != 0) line.append(", ").append(Number(count, locale)).append(" ").append(word);
  };
  add(reports.gFailureReport.size(), kFailed);
  add(reports.gConflictReport.size(), kNumbered);
  return line;
}
