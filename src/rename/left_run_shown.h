#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "filelist/record_list.h"
#include "platform/clock.h"
#include "platform/services.h"
#include "rename/left_runs.h"

/// What is told of a left run, beside the path of its folder.
struct LeftRunTexts {
  std::string heading;
  std::string story;
  std::string counts;  ///< and what putting back would do, or why it has not done all
};

/// How many of its files aren't back.
std::size_t NotBack(const LeftRun::Facts& facts);

/// Before anything is done with it.
LeftRunTexts TextsOf(const LeftRun::Facts& facts, Clock& clock, const LocaleFacts& locale);

/// "12,345 of 100,000".
std::string CountLine(std::size_t count, std::size_t all, const LocaleFacts& locale);

/// What putting back came to, with `before` the facts from before it and `now` those that it left.
/// The story is empty.
LeftRunTexts ResultTexts(const LeftRun::Facts& before, const LeftRun::Facts& now, bool cancelled,
                         const LocaleFacts& locale);

/// The columns of the list of its files. The rows are grouped by kLeftPath.
enum LeftFilesColumn : int { kLeftPath, kLeftFormer, kLeftPresent, kLeftFolder, kLeftReason };

/// The list of `files`, which it refers to.
RecordSource LeftFiles(const std::vector<LeftRun::File>& files);

/// Whether the column has something to tell of any of them: another folder, or a reason.
bool HasFolders(const std::vector<LeftRun::File>& files);
bool HasReasons(const std::vector<LeftRun::File>& files);
