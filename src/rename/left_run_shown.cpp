#include "rename/left_run_shown.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "common/language.h"
#include "common/path_text.h"
#include "common/problem_text.h"
#include "common/size_text.h"
#include "names/date_format.h"
#include "rename/results/result_kinds.h"
#include "settings/output_modes.h"

namespace {

using namespace mLanguageGobals;
using Facts = LeftRun::Facts;
using File = LeftRun::File;

std::string Number(std::size_t count, const LocaleFacts& locale) {
  return mCommon::SizeCorrectView(static_cast<double>(count), 0, locale);
}

bool IsRun(const Facts& facts) {
  return facts.work == LeftRun::Work::kRun;
}

/// A run that failed with some files, or was ended by its user.
bool IsInPart(const Facts& facts) {
  return NotBack(facts) < facts.wanted;
}

std::string_view HeadingOf(const Facts& facts) {
  if (!IsRun(facts)) {
    return facts.work == LeftRun::Work::kUndo && facts.cut_off ? kUndoCutOff : kNotAllBack;
  }
  if (facts.cut_off) return kRunCutOff;
  return IsInPart(facts) ? kRunNotComplete : kRunStillThere;
}

std::string WhatHappened(const Facts& facts) {
  if (!facts.cut_off && !IsRun(facts)) return std::string(kNotAllPutBack);
  if (!facts.cut_off && !IsInPart(facts)) return std::string(kEndedAfterRun);
  return std::string(facts.cut_off ? kEndedBeforeAllWere : kEndedWithPart)
      .append(IsRun(facts) ? DoneWord(facts.output_mode) : kPutBackWord)
      .append(".");
}

std::string WhenItBegan(const Facts& facts, Clock& clock, const LocaleFacts& locale) {
  const std::optional<LocalTime> began = clock.ToLocal(facts.began);
  if (!began) return {};
  const auto two = [](int value) { return std::to_string(100 + value).substr(1); };
  return std::string(kRunBeganOn)
      .append(FormatDate("d mmmm yyyy", began->year, began->month, began->day, locale))
      .append(kAt)
      .append(two(began->hour) + ":" + two(began->minute) + ".");
}

/// "12 of 100 files were renamed", "12 files are still renamed, 3 moved".
std::string Counted(const Facts& facts, const LocaleFacts& locale) {
  const std::pair<std::size_t, int> kinds[] = {
      {facts.renamed, kUseSourceFolder}, {facts.moved, kMoveTo}, {facts.copied, kCopyTo}};
  std::string line;
  for (const auto& [count, mode] : kinds) {
    if (count == 0) continue;
    if (!line.empty()) {
      line.append(", ").append(Number(count, locale)).append(" ").append(DoneWord(mode));
      continue;
    }
    // Several runs may have renamed more files than the last one was to.
    const bool of_wanted = count == NotBack(facts) && count <= facts.wanted;
    line = of_wanted ? CountLine(count, facts.wanted, locale) : Number(count, locale);
    const bool one = count == 1;
    line.append((of_wanted ? facts.wanted : count) == 1 ? kOneFile : kManyFiles)
        .append(IsRun(facts) ? (one ? kWas : kWere) : (one ? kIsStill : kAreStill))
        .append(DoneWord(mode));
  }
  return line + ".";
}

std::string_view WhatPutBackDoes(const Facts& facts) {
  if (facts.copied == NotBack(facts)) return kBackDeletesCopies;
  if (facts.copied != 0) return kBackDoesBoth;
  return facts.moved != 0 ? kBackMoves : kBackGivesNames;
}

/// The folder of a path, with its closing separator, and its name.
std::size_t NameBegins(std::string_view path) {
  return path.rfind(kNative.separator) + 1;
}
std::string_view FolderOf(std::string_view path) {
  return path.substr(0, NameBegins(path));
}
std::string_view NameOf(std::string_view path) {
  return path.substr(NameBegins(path));
}

bool HasOtherFolder(const File& file) {
  return FolderOf(file.former) != FolderOf(file.present);
}

std::string_view StateOf(const File& file) {
  if (file.problem != 0) return kFailed;
  return DoneWord(file.change == LeftRun::Change::kCopied  ? kCopyTo
                  : file.change == LeftRun::Change::kMoved ? kMoveTo
                                                           : kUseSourceFolder);
}

ListColumn Column(std::string_view caption, Cell cell, const ColumnWidth& width,
                  const TextOf& text_of) {
  const auto text = [text_of](std::size_t record) { return std::string(text_of(record)); };
  return {caption, cell, width, text, ByText(text_of)};
}

}  // namespace

std::size_t NotBack(const Facts& facts) {
  return facts.renamed + facts.moved + facts.copied;
}

LeftRunTexts TextsOf(const Facts& facts, Clock& clock, const LocaleFacts& locale) {
  std::string counts = Counted(facts, locale).append(WhatPutBackDoes(facts));
  if (facts.incomplete) counts += kNotAllWritten;
  return {std::string(HeadingOf(facts)), WhatHappened(facts) + WhenItBegan(facts, clock, locale),
          counts};
}

std::string CountLine(std::size_t count, std::size_t all, const LocaleFacts& locale) {
  return Number(count, locale).append(kOf).append(Number(all, locale));
}

LeftRunTexts ResultTexts(const Facts& before, const Facts& now, bool cancelled,
                         const LocaleFacts& locale) {
  const std::size_t all = NotBack(before), left = NotBack(now);
  const bool one = all == 1, copies = before.copied == all;
  std::string counts = CountLine(all - std::min(left, all), all, locale)
                           .append(copies ? (one ? kCopyIsDeleted : kCopiesAreDeleted)
                                          : (one ? kFileIsBack : kFilesAreBack));
  if (left != 0) counts += cancelled ? kPutBackGoesOn : kListTellsWhy;
  return {std::string(left == 0 ? kAllBack : kNotAllBack), "", counts};
}

RecordSource LeftFiles(const std::vector<File>& files) {
  const auto of = FieldsOf(files);
  const auto path = of([](const File& file) { return FolderOf(file.former); });
  const auto text = [path](std::size_t record) { return std::string(path(record)); };
  const auto by_path = [&files, path] { return ShareTexts(files.size(), path); };
  const auto reason = [](const File& file) { return mCommon::ProblemText(file.problem); };
  const auto facts = [](const File& file) {
    const Mark mark = file.problem == 0 ? Mark::kDone : Mark::kFailed;
    return RecordFacts{StateOf(file), mark, file.problem, NameOf(file.former),
                       NameOf(file.present)};
  };
  return {{
              {"Path", Cell::kHidden, kNameWidth, text, by_path, {}, true},
              Column("Former name", Cell::kOldName, kNameWidth,
                     of([](const File& file) { return NameOf(file.former); })),
              Column("Present name", Cell::kNewName, kNameWidth,
                     of([](const File& file) { return NameOf(file.present); })),
              Column("Present folder", Cell::kText, kNameWidth,
                     of([](const File& file) { return FolderOf(file.present); })),
              {"Reason", Cell::kText, ReasonWidth(), of(reason)},
          },
          [&files] { return files.size(); },
          of(facts),
          of([](const File& file) { return file.present; })};
}

bool HasFolders(const std::vector<File>& files) {
  return std::ranges::any_of(files, HasOtherFolder);
}

bool HasReasons(const std::vector<File>& files) {
  return std::ranges::any_of(files, [](const File& file) { return file.problem != 0; });
}
