#include "core/name_problem.h"

#include <string_view>

#include "common/language.h"

namespace {

using namespace mLanguageGobals;

bool HasStem(std::string_view name) {
  return !name.empty() && (name.front() != '.' || name.rfind('.') != 0);
}

}  // namespace

NameVerdict JudgeNewName(const FileRow& row, std::size_t limit) {
  if (!row.checked || row.RowTag == 1) return {};
  const std::string_view name = row.newFileName;
  if (name.empty()) return {NameProblem::kEmpty};
  if (name.size() > limit) return {NameProblem::kTooLong, name.size(), limit};
  if (HasStem(name)) return {};
  // A file that was moved aside bears a name that nobody gave it.
  const std::string_view former = row.Rollback();
  const bool lost = HasStem(former.empty() ? row.sourceFileName : former);
  return {lost ? NameProblem::kOnlyExtension : NameProblem::kNone};
}

std::string VerdictText(const NameVerdict& verdict) {
  switch (verdict.problem) {
    case NameProblem::kNone:
      break;
    case NameProblem::kEmpty:
      return std::string(kEmptyWillFail);
    case NameProblem::kTooLong:
      return std::string(kTooLongBy)
          .append(std::to_string(verdict.bytes))
          .append(kOf)
          .append(std::to_string(verdict.limit))
          .append(" ")
          .append(kBytes);
    case NameProblem::kOnlyExtension:
      return std::string(kOnlyExtension);
  }
  return {};
}
