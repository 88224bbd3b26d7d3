#pragma once

#include <string>
#include <string_view>

#include "core/records.h"
#include "core/run_state.h"
#include "platform/services.h"
#include "rename/result_rows.h"

/// How far a pass is, "12,345 of 100,000"; empty when it counts no files. Numbers are written as
/// the locale has them.
std::string ProgressLine(const FileCounts& counts, const LocaleFacts& locale);

/// How many of the listed files are ticked, "29 of 30 files ticked"; empty when all are.
std::string TicksLine(const Records& records, const LocaleFacts& locale);

/// What a preview came to, "2,984 new names, 1 empty, 37 taken, 3 only an extension, 2 too long".
/// An empty one is no new name, the others are among them. Where it looked at no row, the ticks say
/// why: "0 new names, 0 of 30 files ticked".
std::string NamesLine(const NameTally& names, const Records& records, const LocaleFacts& locale);

/// What a run or undo did, "2,983 renamed, 1 failed, 410 numbered", with `done` for the first word.
/// What there is none of is left out, but for the first. After a run that did nothing, `records`
/// say how many are ticked; null after an undo, which doesn't go by ticks.
std::string ResultLine(std::string_view done, const FileCounts& counts, const RunReports& reports,
                       const Records* records, const LocaleFacts& locale);

/// That a run could not be undone after a crash, for its journal could not be written: why, as
/// errno. Stands behind one of the lines above; empty for 0.
std::string NoJournalText(int problem);
