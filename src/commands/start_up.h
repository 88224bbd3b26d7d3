#pragma once

#include "errors/report_file.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/system_facts.h"

namespace mMain {

/// Whether the program may go on to its first window. Tells the user when it can't run on this
/// system; ends without a word while another copy runs.
bool MayStart(SystemFacts& facts, Prompts& prompts, bool another_runs);

/// What the working folder holds; noted for the error report.
StartFlags LookForStartFiles(FileSystem& files);

}  // namespace mMain
