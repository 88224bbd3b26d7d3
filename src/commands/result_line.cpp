#include "commands/result_line.h"

#include <numeric>
#include <utility>

#include "common/language.h"
#include "common/problem_text.h"
#include "common/size_text.h"

namespace {

using namespace mLanguageGobals;

template <class Count>
std::string Number(Count count, const LocaleFacts& locale) {
  return mCommon::SizeCorrectView(static_cast<double>(count), 0, locale);
}

/// What there is none of is left out.
template <class Count>
void AddPart(std::string& line, Count count, std::string_view word, const LocaleFacts& locale) {
  if (count != 0) line.append(", ").append(Number(count, locale)).append(" ").append(word);
}

void AddTicks(std::string& line, const Records& records, const LocaleFacts& locale) {
  if (const std::string ticks = TicksLine(records, locale); !ticks.empty()) {
    line.append(", ").append(ticks);
  }
}

}  // namespace

std::string ProgressLine(const FileCounts& counts, const LocaleFacts& locale) {
  if (counts.all == 0) return {};
  return Number(counts.passed, locale).append(kOf) + Number(counts.all, locale);
}

std::string TicksLine(const Records& records, const LocaleFacts& locale) {
  std::size_t ticked = 0;  // one look at each: a million take a few milliseconds
  for (std::size_t i = 0; i < records.Count(); ++i) ticked += records[i].checked ? 1 : 0;
  if (ticked == records.Count()) return {};
  return Number(ticked, locale)
      .append(kOf)
      .append(Number(records.Count(), locale))
      .append(records.Count() == 1 ? kFileTicked : kFilesTicked);
}

std::string NamesLine(const NameTally& names, const Records& records, const LocaleFacts& locale) {
  constexpr std::pair<NameProblem, std::string_view> kParts[] = {
      {NameProblem::kEmpty, kEmpty},
      {NameProblem::kOnlyExtension, kOnlyExtension},
      {NameProblem::kTooLong, kTooLong},
      {NameProblem::kHoldsSeparator, kWithSeparator}};
  const auto rows = [&](NameProblem problem) {
    return names.rows[static_cast<std::size_t>(problem)];
  };
  const std::int64_t looked_at = std::accumulate(names.rows.begin(), names.rows.end(), 0LL);
  const std::int64_t given = looked_at - rows(NameProblem::kEmpty);
  std::string line = Number(given, locale).append(" ").append(given == 1 ? kNewName : kNewNames);
  for (const auto& [problem, word] : kParts) {
    AddPart(line, rows(problem), word, locale);
    if (problem == NameProblem::kEmpty) AddPart(line, names.taken, kTaken, locale);
  }
  if (looked_at == 0) AddTicks(line, records, locale);
  return line;
}

std::string ResultLine(std::string_view done, const FileCounts& counts, const RunReports& reports,
                       const Records* records, const LocaleFacts& locale) {
  std::string line = Number(counts.done, locale).append(" ").append(done);
  AddPart(line, reports.gFailureReport.size(), kFailed, locale);
  AddPart(line, reports.gConflictReport.size(), kNumbered, locale);
  const bool nothing = counts.done == 0 && reports.gFailureReport.empty();
  if (nothing && records != nullptr) AddTicks(line, *records, locale);
  return line;
}

std::string NoJournalText(int problem) {
  if (problem == 0) return {};
  return std::string(". ").append(kNoUndoAfterCrash) + mCommon::ProblemText(problem);
}
