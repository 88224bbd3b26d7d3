#include "core/name_problem.h"

#include <string_view>

#include "common/language.h"

namespace {

using namespace mLanguageGobals;

bool HasStem(std::string_view name) {
  return !name.empty() && (name.front() != '.' || name.rfind('.') != 0);
}

}  // namespace

bool StaysInItsFolder(std::string_view name) {
  return name.find('/') == name.npos && name.find('\0') == name.npos;
}

NameVerdict JudgeNewName(const FileRow& row, std::size_t limit) {
  if (!row.checked || row.RowTag == 1) return {};
  const std::string_view name = row.newFileName;
  if (name.empty()) return {NameProblem::kEmpty};
  if (!StaysInItsFolder(name)) return {NameProblem::kHoldsSeparator};
  if (name.size() > limit) return {NameProblem::kTooLong, name.size(), limit};
  if (HasStem(name)) return {};
  return {HasStem(row.GivenName()) ? NameProblem::kOnlyExtension : NameProblem::kNone};
}

std::string VerdictText(const NameVerdict& verdict) {
  switch (verdict.problem) {
    case NameProblem::kNone:
      break;
    case NameProblem::kEmpty:
      return std::string(kEmptyWillFail);
    case NameProblem::kHoldsSeparator:
      return std::string(kSeparatorWillFail);
    case NameProblem::kTakenFails:
      return std::string(kTakenWillFail);
    case NameProblem::kGetsNumber:
      return std::string(kTakenGetsNumber);
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
