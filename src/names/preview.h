#pragma once

#include "core/pass.h"
#include "filelist/grid.h"
#include "names/constructor.h"
#include "platform/system_facts.h"

/// The preview pass: walks the displayed rows from top to bottom and gives every row that is
/// checked and not yet done its new name; a row that is unchecked loses it. Rows done keep theirs,
/// rows that failed keep their mark. The counters run along, one step a checked row.
///
/// Adds 1 to the progress value a row, group rows too. Answers false when the user cancelled: the
/// rows reached by then have their names. Fails with kOverflow when a counter passes the range of
/// a signed 32-bit integer, and as the elements' transforms do; `RunState::gPreviewStale` is left
/// alone.
///
/// At the end, and only then, `RunState::names` tells what became of them where names may have
/// `name_bytes` bytes.
bool SetPreview(Pass& pass, const Grid& grid, Constructor& constructor,
                std::size_t name_bytes = kUsualNameBytes);
